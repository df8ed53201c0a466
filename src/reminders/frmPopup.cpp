#include "reminders/frmPopup.h"

#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Tocar_Som.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "reminders/frmTarefas.h"
#include "reminders/Momento.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace
{
constexpr int tempo_limite = 60000; // never runs: the notice of tasks waits for as long as it takes
}

frmPopup::frmPopup(Geral &geral, Platform &platform, QWidget &janela, ReportControl &relatorio)
    : RisingCard(janela, tempo_limite),
      geral_(geral),
      platform_(platform),
      janela_(janela),
      relatorio_(relatorio)
{
    setupUi(this);
    scale::apply(*this);
    for (QLabel *surda : {lblData, lblHora})
        surda->setAttribute(Qt::WA_NoMousePropagation);
    connect(this, &RisingCard::Click, this, &frmPopup::Form_Click);
    connect(this, &RisingCard::Unloaded, this, &frmPopup::Form_Unload);

    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    Tocar_Som(platform_.sound, Som_Da_Tarefa(geral_));
    skipFailure([&] { lblMensagem->setText(geral_.Ler_Idioma(172)); });
    rise();
    TimerPisca.setEnabled(true);
}

// The task is read afresh by its ID. One that is no longer there needs no card.
void frmPopup::Form_Click()
{
    if (cartao_ != nullptr || TimerDown.Enabled()) return;
    frmTarefas cartao(geral_, platform_, janela_, relatorio_);
    if (Preencher_Cartao(cartao)) {
        connect(&cartao, &frmTarefas::Adiada, this, [this, &cartao](int minutos) {
            Q_EMIT Adiada(cartao.txtIDTarefa->text(), cartao.lblData->text(), cartao.lblHora->text(),
                          minutos);
        });
        const QScopedValueRollback aberto(cartao_, &cartao);
        cartao.exec();
    }
    sink();
}

bool frmPopup::Preencher_Cartao(frmTarefas &cartao)
{
    Recordset &rs = geral_.de.Abrir("cmdVerTarefa", {txtIDTarefa->text(), geral_.SessaoActual.IdUtilizador});
    const bool existe = !rs.Eof();
    if (existe) {
        const Field Hora = rs.Fields("Hora");
        cartao.txtIDTarefa->setText(rs.Fields("ID").text());
        cartao.Mostrar_Tarefa(rs.Fields("Tarefa").textOrEmpty());
        cartao.lblData->setText(Texto_Da_Data(rs.Fields("Data").date()));
        cartao.lblHora->setText(Hora.isNull() ? QString() : Texto_Da_Hora(Hora.time()));
        Preencher_Repeticao(cartao, rs.Fields("IDRepeticao").textOrEmpty());
    }
    rs.Close();
    return existe;
}

// A repetition without a row has no name; such a task can still be deleted or edited.
void frmPopup::Preencher_Repeticao(frmTarefas &cartao, const QString &IDRepeticao)
{
    cartao.txtIDRepeticao->setText(IDRepeticao);
    if (IDRepeticao.isEmpty()) return;
    Recordset &rs = geral_.de.Abrir("cmdVerRepeticao", {IDRepeticao});
    if (!rs.Eof()) cartao.lblRepeticao->setText(rs.Fields("Nome").textOrEmpty());
    rs.Close();
}

void frmPopup::Anunciar()
{
    announce(
        QStringList{lblMensagem->text(), lblTarefa->text(), lblData->text(), lblHora->text()}.join(u' '));
}

void frmPopup::Fechar_Cartao()
{
    if (cartao_ != nullptr) cartao_->reject();
}

void frmPopup::Form_Unload()
{
    geral_.temporizadores.timerTarefas.setEnabled(true);
    geral_.temporizadores.timerPonto.setEnabled(true);
    Q_EMIT geral_.temporizadores.ReiniciarMail();
}
