#include "interchange/Intercambio.h"

#include "controls/DisabledWindow.h"
#include "data/Geral.h"
#include "interchange/DE2.h"
#include "interchange/frmBackup.h"
#include "interchange/frmExportar.h"
#include "interchange/frmImportar.h"
#include "janela/Janela.h"

#include <QAction>
#include <QMainWindow>

using namespace Qt::StringLiterals;

Intercambio::Intercambio(Janela &janela, Geral &geral, Platform &platform, ReportControl &relatorio)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform), CrystalReport1(relatorio)
{
    connect(janela.Importar, &QAction::triggered, this, &Intercambio::Importar_Click);
    connect(janela.Exportar, &QAction::triggered, this, &Intercambio::Exportar_Click);
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

void Intercambio::Exportar_Click()
{
    frmExportar(geral_, CrystalReport1, *janela_.ListaNomes, &janela_).exec();
}

void Intercambio::mnuBackup_Click() { frmBackup(geral_, platform_, &janela_).exec(); }
