#include "interchange/frmImportarMDB.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Inteiro.h"
#include "interchange/AvisosDaFusao.h"
#include "interchange/DE2.h"
#include "interchange/Intercambio.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

using namespace Qt::StringLiterals;

frmImportarMDB::frmImportarMDB(Geral &geral, Platform &platform, Intercambio &intercambio, QWidget &janela)
    : geral_(geral),
      platform_(platform),
      intercambio_(intercambio),
      janela_(janela),
      pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdSeguinte, &QAbstractButton::clicked, this, &frmImportarMDB::cmdSeguinte_Click);
    connect(cmdCancelar, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmImportarMDB::Form_Unload);

    for (QWidget *marca : {imgRegistos, imgTarefas, imgMemos})
        marca->hide();
    keepPlaceWhenHidden(*ProgressBar1);
    ProgressBar1->hide();
    Contar();
    Escrever_Textos();
}

void frmImportarMDB::Form_Unload()
{
    pausa_.Retomar();
    janela_.setEnabled(true);
}

// Totals of 16 bits: a table of more rows can't be counted.
void frmImportarMDB::Contar()
{
    const auto contar = [this](DE2::Comando comando, const char *coluna) {
        Recordset &rs = intercambio_.De2().Abrir(comando);
        const qint16 total = Inteiro(rs.Fields(coluna).text());
        rs.Close();
        return total;
    };
    totais_.Contactos = contar(DE2::Morvex5_Count_Registos, "CountRegistos");
    totais_.Memos = contar(DE2::Morvex5_Count_Memos, "CountMemos");
    totais_.Tarefas = contar(DE2::Morvex5_Count_Tarefas, "CountTarefas");
}

void frmImportarMDB::Escrever_Textos()
{
    setWindowTitle(geral_.Ler_Idioma(82));
    Label1->setText(geral_.Ler_Idioma(83));
    Label2->setText(geral_.Ler_Idioma(230) + u' ' + intercambio_.FileName);
    Label3->setText(geral_.Ler_Idioma(86) + u' ' + QString::number(totais_.Contactos));
    Label4->setText(geral_.Ler_Idioma(233) + u": "_s + QString::number(totais_.Memos));
    Label5->setText(geral_.Ler_Idioma(234) + u": "_s + QString::number(totais_.Tarefas));
    cmdSeguinte->setText(geral_.Ler_Idioma(229));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    ProgressBar1->setAccessibleName(windowTitle());
    concluida_ = geral_.Ler_Idioma(231);
    encerrar_ = geral_.Ler_Idioma(235);
}

// Asked before the first row: a merge skips what fails, and a database that takes nothing would fail at each.
bool frmImportarMDB::Deixa_Se_Escrever()
{
    if (skipFailure([this] { geral_.de.Experimentar_Escrita(); })) return true;
    platform_.boxes.show(
        avisos_da_fusao::Nada_Se_Escreve(geral_.de.Ficheiro(), spokenLanguage(geral_.IdiomaActual)),
        box::stop, windowTitle(), this);
    return false;
}

// The bar paints itself as the merge goes on; no other event is taken.
void frmImportarMDB::cmdSeguinte_Click()
{
    if (!Deixa_Se_Escrever()) return;
    Fusao fusao(geral_, intercambio_.De2(), totais_);
    connect(&fusao, &Fusao::Progresso, ProgressBar1, &QProgressBar::setValue);
    const auto mostrar = [](QWidget *marca) {
        return [marca] {
            marca->show();
            marca->repaint();
        };
    };
    connect(&fusao, &Fusao::ContactosLidos, this, mostrar(imgRegistos));
    connect(&fusao, &Fusao::TarefasLidas, this, mostrar(imgTarefas));
    connect(&fusao, &Fusao::MemosLidos, this, mostrar(imgMemos));
    ProgressBar1->show();
    fusao.Correr();
    platform_.boxes.show(Resultado(fusao), box::exclamation, windowTitle(), this);
    platform_.process.end();
}

QString frmImportarMDB::Resultado(const Fusao &fusao) const
{
    const QString feito =
        fusao.Completa() ? concluida_ + u"\r\n"_s
                         : avisos_da_fusao::Incompleta(fusao, avisos_da_fusao::Onde_Se_Guardou(geral_.de),
                                                       spokenLanguage(geral_.IdiomaActual));
    return fusao.Relatorio() + feito + encerrar_;
}
