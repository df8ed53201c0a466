#include "cards/EntradaDeContactos.h"

#include "cards/frmDuplicados.h"
#include "cards/frmImportarContactos.h"
#include "controls/DisabledWindow.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "janela/Janela.h"

#include <memory>
#include <QAction>
#include <QGuiApplication>
#include <QScopeGuard>

EntradaDeContactos::EntradaDeContactos(Janela &janela, Geral &geral, Platform &platform,
                                       DesfazerEliminacao &desfazer)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform), desfazer_(desfazer)
{
    connect(janela.ImportarContactos, &QAction::triggered, this, [this] { ImportarContactos({}); });
    connect(janela.Duplicados, &QAction::triggered, this, &EntradaDeContactos::Duplicados_Click);
}

void EntradaDeContactos::ImportarContactos(const QString &caminho)
{
    Mostrar_frmImportarContactos([&](frmImportarContactos &form) { form.Abrir(caminho); });
}

void EntradaDeContactos::ImportarCartoes(const QByteArray &bytes)
{
    Mostrar_frmImportarContactos([&](frmImportarContactos &form) { form.Abrir_Cartoes(bytes); });
}

void EntradaDeContactos::Mostrar_frmImportarContactos(
    const std::function<void(frmImportarContactos &)> &abrir)
{
    if (!Tem_Direito(geral_.SessaoActual.Adicionar, geral_, platform_, &janela_)) return;
    const DisabledWindow desactivada(janela_);
    frmImportarContactos form(geral_, platform_, &janela_);
    connect(&form, &frmImportarContactos::ContactosMudados, this, &EntradaDeContactos::ContactosMudados);
    abrir(form);
    form.exec();
}

// A large book takes a moment to be compared.
void EntradaDeContactos::Duplicados_Click()
{
    if (!Tem_Direito(geral_.SessaoActual.Editar, geral_, platform_, &janela_)) return;
    const DisabledWindow desactivada(janela_);
    const auto form = [this] {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        const auto depois = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
        return std::make_unique<frmDuplicados>(geral_, platform_, desfazer_, &janela_);
    }();
    form->exec();
    if (form->Juntou()) Q_EMIT ContactosMudados();
}
