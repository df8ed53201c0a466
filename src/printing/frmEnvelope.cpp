#include "printing/frmEnvelope.h"

#include "controls/Contrast.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "data/Relatorio.h"
#include "data/Sementes.h"
#include "platform/Translations.h"
#include "report/ReportControl.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr unsigned cor_escolhida = 15838582;
constexpr unsigned cor_nao_escolhida = 14215660;

// Words in the code: a database keeps the texts that it was made with, and most are older than these.
constexpr Translations remetente_de_amostra{
    u"O remetente ainda é o do exemplo. Escreva o seu nas opções.",
    u"O remetente ainda é o do exemplo. Escreva o seu nas opções.",
    u"The sender is still the sample. Write your own in the options.",
    u"El remitente sigue siendo el del ejemplo. Escriba el suyo en las opciones.",
    u"Il mittente è ancora quello di esempio. Scrivere il proprio nelle opzioni.",
    u"L’expéditeur est encore celui de l’exemple. Saisissez le vôtre dans les options.",
    u"Als Absender steht noch das Beispiel da. Tragen Sie Ihren eigenen in den Optionen ein."};

void Pintar(QPushButton &botao, unsigned cor)
{
    QPalette palette = botao.palette();
    setGround(palette, colour(cor));
    botao.setPalette(palette);
}
} // namespace

frmEnvelope::frmEnvelope(Geral &geral, ReportControl &relatorio, QWidget *dono)
    : QDialog(dono), geral_(geral), CrystalReport1(relatorio)
{
    setupUi(this);
    scale::apply(*this);
    alimentacoes_ = {Alimentacao{cmdLeft, u"envelope_left"_s}, Alimentacao{cmdCenter, u"envelope_center"_s},
                     Alimentacao{cmdRight, u"envelope_right"_s}};
    for (const auto &[botao, nome] : alimentacoes_)
        connect(botao, &QPushButton::clicked, this, [this, nome = nome] { Alimentacao_Click(nome); });
    connect(cmdImprimir, &QPushButton::clicked, this, &frmEnvelope::cmdImprimir_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmEnvelope::Form_Unload);

    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    Legendar();
    Mostrar_Escolhida();
    Avisar_Da_Amostra();
}

void frmEnvelope::Legendar()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(159)));
    lblNome->setText(geral_.Ler_Idioma(161));
    lblLeft->setText(geral_.Ler_Idioma(162));
    lblCenter->setText(geral_.Ler_Idioma(163));
    lblRight->setText(geral_.Ler_Idioma(164));
    cmdImprimir->setText(geral_.Ler_Idioma(80));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    for (const QLabel *legenda : {lblLeft, lblCenter, lblRight})
        legenda->buddy()->setAccessibleName(withoutMnemonic(legenda->text()));
}

// A setting that is none of the three leaves all buttons as they were drawn.
void frmEnvelope::Mostrar_Escolhida()
{
    for (const auto &[botao, nome] : alimentacoes_)
        if (nome == geral_.AlimentacaoEnvelopes) Pintar(*botao, cor_escolhida);
}

void frmEnvelope::Avisar_Da_Amostra()
{
    lblRemetente->setText(translated(remetente_de_amostra, geral_.IdiomaActual));
    lblRemetente->setVisible(sementes::Remetente_De_Amostra(geral_.RemetenteBD));
}

// Stopped once more instead of started: the background timers rest until another form lets them run.
void frmEnvelope::Form_Unload() { geral_.temporizadores.Gerir_Temporizadores(u"stop"_s); }

void frmEnvelope::Alimentacao_Click(const QString &escolhida)
{
    for (const auto &[botao, nome] : alimentacoes_)
        Pintar(*botao, nome == escolhida ? cor_escolhida : cor_nao_escolhida);
    geral_.AlimentacaoEnvelopes = escolhida;
    geral_.ini.Escrever_Ini(u"envelopes"_s, u"alimentacao"_s, escolhida);
}

// Sort order and parameters stay what the last run of the shared control left. So does an empty path of the
// session.
void frmEnvelope::cmdImprimir_Click()
{
    CrystalReport1.setReportFileName(geral_.Ficheiro(geral_.AlimentacaoEnvelopes + u".rpt"_s));
    relatorio::Indicar_Base(geral_.de.Base().Caminho(), CrystalReport1);
    CrystalReport1.ReplaceSelectionFormula({});
    CrystalReport1.ReplaceSelectionFormula(relatorio::Seleccao_Do_Contacto(geral_.IDContacto));
    relatorio::Pre_Visualizar(withoutMnemonic(geral_.Ler_Idioma(77)), CrystalReport1);
    CrystalReport1.setAction(1);
}
