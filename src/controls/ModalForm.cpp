#include "controls/ModalForm.h"

#include <QDialog>
#include <QEventLoop>

void runModal(QDialog &form)
{
    QEventLoop loop;
    QObject::connect(&form, &QDialog::finished, &loop, &QEventLoop::quit);
    form.setWindowModality(Qt::ApplicationModal);
    form.show();
    loop.exec(QEventLoop::DialogExec);
}
