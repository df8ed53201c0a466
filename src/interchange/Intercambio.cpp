#include "interchange/Intercambio.h"

#include "controls/DisabledWindow.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "interchange/DE2.h"
#include "interchange/frmBackup.h"
#include "interchange/frmDuplicados.h"
#include "interchange/frmExportar.h"
#include "interchange/frmImportar.h"
#include "interchange/frmImportarContactos.h"
#include "janela/Janela.h"

#include <QAction>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

Intercambio::Intercambio(Janela &janela, Geral &geral, Platform &platform, ReportControl &relatorio,
                         DesfazerEliminacao &desfazer)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      CrystalReport1(relatorio),
      desfazer_(desfazer)
{
    connect(janela.Importar, &QAction::triggered, this, &Intercambio::Importar_Click);
    connect(janela.Exportar, &QAction::triggered, this, &Intercambio::Exportar_Click);
    connect(janela.ImportarContactos, &QAction::triggered, this, [this] { ImportarContactos({}); });
    connect(janela.Duplicados, &QAction::triggered, this, &Intercambio::Duplicados_Click);
    connect(janela.mnuBackup, &QAction::triggered, this, &Intercambio::mnuBackup_Click);
}

Intercambio::~Intercambio() = default;

DE2 &Intercambio::De2()
{
    if (!de2_) de2_ = std::make_unique<DE2>(FileName);
    return *de2_;
}

// The forms enable the window themselves when they close, so that the second one stands before a window
// alive.
void Intercambio::Mostrar_frmImportar(const QString &caminho)
{
    const DisabledWindow desactivada(janela_);
    frmImportar importar(geral_, platform_, *this, janela_);
    importar.setWindowTitle(geral_.Ler_Idioma(82));
    if (!caminho.isEmpty()) importar.Escolher(caminho);
    importar.exec();
}

void Intercambio::Importar_Click() { Mostrar_frmImportar({}); }

void Intercambio::Importar(const QString &caminho) { Mostrar_frmImportar(caminho); }

void Intercambio::ImportarContactos(const QString &caminho)
{
    Mostrar_frmImportarContactos([&](frmImportarContactos &form) { form.Abrir(caminho); });
}

void Intercambio::ImportarCartoes(const QByteArray &bytes)
{
    Mostrar_frmImportarContactos([&](frmImportarContactos &form) { form.Abrir_Cartoes(bytes); });
}

void Intercambio::Mostrar_frmImportarContactos(const std::function<void(frmImportarContactos &)> &abrir)
{
    if (!Tem_Direito(geral_.SessaoActual.Adicionar, geral_, platform_, &janela_)) return;
    const DisabledWindow desactivada(janela_);
    frmImportarContactos form(geral_, platform_, &janela_);
    connect(&form, &frmImportarContactos::ContactosMudados, this, &Intercambio::ContactosMudados);
    abrir(form);
    form.exec();
}

void Intercambio::Exportar_Click()
{
    frmExportar(geral_, CrystalReport1, *janela_.ListaNomes, &janela_).exec();
}

// A large book takes a moment to be compared.
void Intercambio::Duplicados_Click()
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

void Intercambio::mnuBackup_Click() { frmBackup(geral_, platform_, &janela_).exec(); }
