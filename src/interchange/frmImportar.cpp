#include "interchange/frmImportar.h"

#include "controls/ListBox.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "interchange/AvisosDaFusao.h"
#include "interchange/DE2.h"
#include "interchange/frmImportar2.h"
#include "interchange/frmImportarMDB.h"
#include "interchange/Intercambio.h"
#include "interchange/RegistoMorvex.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

using namespace Qt::StringLiterals;

frmImportar::frmImportar(Geral &geral, Platform &platform, Intercambio &intercambio, QWidget &janela)
    : geral_(geral),
      platform_(platform),
      intercambio_(intercambio),
      janela_(janela),
      pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdProcurar, &QAbstractButton::clicked, this, &frmImportar::cmdProcurar_Click);
    connect(cmdSeguinte, &QAbstractButton::clicked, this, &frmImportar::cmdSeguinte_Click);
    connect(cmdCancelar, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmImportar::Form_Unload);

    Label1->setText(geral_.Ler_Idioma(83));
    Label2->setText(geral_.Ler_Idioma(84));
    cmdProcurar->setText(geral_.Ler_Idioma(69));
    cmdSeguinte->setText(geral_.Ler_Idioma(71));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
}

void frmImportar::Form_Unload()
{
    pausa_.Retomar();
    janela_.setEnabled(true);
}

// A cancel loses an earlier choice, and so does a failure on the way, which nobody hears of.
void frmImportar::cmdProcurar_Click()
{
    intercambio_.FileName.clear();
    QString escolhido;
    skipFailure([&] {
        escolhido = platform_.dialogs.openFile(geral_.Ler_Idioma(81) + u"|*.dat;*.mdb"_s, QString(), this)
                        .value_or(u""_s);
    });
    Escolher(escolhido);
}

void frmImportar::Escolher(const QString &caminho)
{
    intercambio_.FileName = caminho;
    txtCaminho->setText(caminho);
    cmdSeguinte->setEnabled(!caminho.isEmpty());
}

void frmImportar::cmdSeguinte_Click()
{
    const QString caminho = txtCaminho->text();
    if (Recusar(caminho)) return;
    onFailure([&] { Continuar(caminho); }, [&](const Failure &) { Falhar(caminho); });
}

// What must not even be opened is told, and the form stays for another choice.
bool frmImportar::Recusar(const QString &caminho)
{
    const QString idioma = spokenLanguage(geral_.IdiomaActual);
    QString motivo;
    skipFailure([&] {
        if (geral_.de.E_A_Base_Aberta(caminho)) motivo = avisos_da_fusao::Base_Em_Uso(caminho, idioma);
    });
    if (DE2::Grande_Demais(caminho)) motivo = avisos_da_fusao::Ficheiro_Grande(caminho, idioma);
    if (motivo.isEmpty()) return false;
    platform_.boxes.show(motivo, box::stop, windowTitle(), this);
    return true;
}

// Small letters alone make a text file: everything else is taken for a database.
void frmImportar::Continuar(const QString &caminho)
{
    if (caminho.right(3) == "dat"_L1)
        Importar_Texto(caminho);
    else
        Importar_Base();
}

void frmImportar::Importar_Base()
{
    accept();
    frmImportarMDB(geral_, platform_, intercambio_, janela_).exec();
}

// The second form is loaded before the first one closes, and its title is set when it has closed already:
// that loads it once more, unseen, and the timers stay stopped.
void frmImportar::Importar_Texto(const QString &caminho)
{
    const QStringList registos = registo_morvex::Registos(registo_morvex::Ler_Linhas(caminho));
    frmImportar2 segunda(geral_, platform_, intercambio_, janela_);
    for (const QString &registo : registos)
        segunda.ListaMorvex43->AddItem(registo);
    segunda.Label3->setText(geral_.Ler_Idioma(86) + u' ' +
                            QString::number(segunda.ListaMorvex43->ListCount()));
    accept();
    segunda.exec();
    segunda.Form_Load();
    segunda.setWindowTitle(geral_.Ler_Idioma(82));
}

// The older database is closed without asking whether there is one. Where there is none it is made first,
// which may fail in its turn, and that ends the process.
void frmImportar::Falhar(const QString &caminho)
{
    endOnFailure(platform_.boxes, platform_.process, [&] {
        intercambio_.De2().Fechar_cn();
        platform_.boxes.show(geral_.Ler_Idioma(87) + u"\r\n"_s + caminho, box::stop, windowTitle(),
                             isVisible() ? this : &janela_);
    });
}
