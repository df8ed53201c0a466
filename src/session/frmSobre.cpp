#include "session/frmSobre.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/TextOrder.h"
#include "platform/Translations.h"
#include "store/Connection.h"

#include <QDir>
#include <QTextOption>

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations pasta_dos_dados{
    u"Pasta dos dados:",   u"Pasta dos dados:",           u"Data folder:", u"Carpeta de datos:",
    u"Cartella dei dati:", u"Dossier des données\u00A0:", u"Datenordner:"};

// What a person who reports a fault is asked for; the libraries as they are on this machine.
QString Pormenores(const Geral &geral)
{
    const QString pasta = QDir::toNativeSeparators(geral.Pasta);
    return translated(pasta_dos_dados, geral.IdiomaActual) + u'\n' + pasta +
           u"\nQt %1, SQLite %2, ICU %3"_s.arg(QString::fromLatin1(qVersion()), Connection::storeVersion(),
                                               textLibraryVersion());
}
} // namespace

frmSobre::frmSobre(Geral &geral, QWidget *dono) : QDialog(dono)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdFechar, &QPushButton::clicked, this, &QDialog::accept);
    setWindowTitle(withoutMnemonic(geral.Ler_Idioma(156)));
    lblVersao->setText(geral.VersaoBD);
    txtPormenores->setWordWrapMode(QTextOption::WrapAnywhere); // a folder's name has few blanks
    txtPormenores->setPlainText(Pormenores(geral));
    txtPormenores->setAccessibleName(windowTitle());
    cmdFechar->setFocus();
    cmdFechar->setText(geral.Ler_Idioma(135));
}
