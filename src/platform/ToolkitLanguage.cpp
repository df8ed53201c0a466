#include "platform/ToolkitLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

void useToolkitLanguage(const QString &code)
{
    QCoreApplication &application = *QCoreApplication::instance();
    qDeleteAll(application.findChildren<QTranslator *>(u"toolkit"_s, Qt::FindDirectChildrenOnly));
    auto *translator = new QTranslator(&application);
    translator->setObjectName(u"toolkit"_s);
    if (translator->load(u"qtbase_"_s + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}
