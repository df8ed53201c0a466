#include "reminders/Alarme.h"

#include "controls/DisabledWindow.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "reminders/frmPopup.h"
#include "reminders/Momento.h"

#include <optional>
#include <QApplication>

// Of each column the value of the last row in which it could be read.
struct Alarme::UltimaVencida {
    bool Completa() const { return ID && Tarefa && Data && Hora; }

    bool toca = false; // there is a row that is not silent
    std::optional<QString> ID;
    std::optional<QString> Tarefa;
    std::optional<QDate> Data;
    std::optional<QTime> Hora;
};

Alarme::UltimaVencida Alarme::Ler(Recordset &rs, const Conta &conta) const
{
    UltimaVencida ultima;
    for (; !rs.Eof(); rs.MoveNext()) {
        if ((conta && !conta(rs)) || Silenciada(rs)) continue;
        ultima.toca = true;
        skipFailure([&] { ultima.ID = rs.Fields("ID").text(); });
        skipFailure([&] { ultima.Tarefa = rs.Fields("Tarefa").text(); });
        skipFailure([&] { ultima.Data = rs.Fields("Data").date(); });
        skipFailure([&] { ultima.Hora = rs.Fields("Hora").time(); });
    }
    return ultima;
}

bool Alarme::Silenciada(const Recordset &rs) const
{
    bool silenciada = false;
    if (adiadas_.empty()) return silenciada;
    skipFailure([&] {
        silenciada = adiadas_.contains({rs.Fields("ID").text(), Texto_Da_Data(rs.Fields("Data").date()),
                                        Texto_Da_Hora(rs.Fields("Hora").time())});
    });
    return silenciada;
}

void Alarme::Adiar(const QString &ID, const QString &Data, const QString &Hora, int minutos)
{
    adiadas_[{ID, Data, Hora}] = platform_.clock.now().addSecs(qint64{60} * minutos);
}

Alarme::Alarme(QWidget &janela, Geral &geral, Platform &platform, ReportControl &relatorio)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      relatorio_(relatorio),
      lidas_(geral, platform.clock)
{
    connect(&geral_.temporizadores.timerTarefas, &QTimer::timeout, this, &Alarme::timerTarefas_Timer);
}

Alarme::~Alarme() = default;

// Nothing in a tick is ever reported: a step that fails is skipped, and the next tick tries again. The end
// sets both timers going even where the notice has just stopped them at its load, so ticks go on under it.
void Alarme::timerTarefas_Timer()
{
    const QDateTime agora = platform_.clock.now();
    const QString DataActual = Texto_Da_Data(agora.date());
    const QString HoraActual = Texto_Da_Hora(agora.time());
    const QString &Utilizador = geral_.SessaoActual.IdUtilizador;
    std::erase_if(adiadas_, [&](const auto &adiada) { return adiada.second <= agora; });
    if (geral_.de.Num_Servidor()) {
        skipFailure([&] { Mostrar_Das_Lidas(agora); });
    } else {
        skipFailure([&] { Mostrar_Vencidas("cmdVerificarTarefas", {DataActual, HoraActual, Utilizador}); });
        skipFailure([&] { Mostrar_Vencidas("cmdVerificarTarefas2", {DataActual, Utilizador}); });
    }
    geral_.temporizadores.timerTarefas.setEnabled(true);
    geral_.temporizadores.timerPonto.setEnabled(true);
}

// Each row counts over the one before, so what the last one that is not silent holds stays, and the others
// are read only for what it lacks. They stay due.
void Alarme::Mostrar_Vencidas(ComandoComLinhas comando, std::initializer_list<Value> parametros)
{
    Recordset &rs = geral_.de.Abrir(comando, parametros);
    if (rs.Eof()) return rs.Close();
    for (int linhas = rs.RecordCount(); linhas > 1; --linhas)
        rs.MoveNext();
    UltimaVencida ultima = Ler(rs);
    if (!ultima.Completa()) ultima = Ler(geral_.de.Abrir(comando, parametros)); // from the first row on
    rs.Close();
    Mostrar(ultima);
}

// The same two questions, to what was read last.
void Alarme::Mostrar_Das_Lidas(const QDateTime &agora)
{
    lidas_.Por_Em_Dia();
    for (const auto &vencida : {&TarefasLidas::Vencida, &TarefasLidas::De_Um_Dia_Anterior}) {
        Recordset rs = lidas_.Linhas();
        if (rs.State() == Recordset::Open)
            Mostrar(Ler(rs, [&](const Recordset &linha) { return vencida(linha, agora); }));
    }
}

void Alarme::Mostrar(const UltimaVencida &ultima)
{
    if (!ultima.toca) return;
    if (ultima.ID) Popup().txtIDTarefa->setText(*ultima.ID);
    if (ultima.Tarefa) Popup().lblTarefa->setText(*ultima.Tarefa);
    if (ultima.Data) Popup().lblData->setText(Texto_Da_Data(*ultima.Data));
    if (ultima.Hora) Popup().lblHora->setText(Texto_Da_Hora(*ultima.Hora));
    geral_.temporizadores.timerTarefas.setEnabled(false);
    geral_.temporizadores.timerPonto.setEnabled(false);
    DisabledWindow::disable(janela_);
    Mostrar_Popup();
    Popup().Anunciar();
}

frmPopup &Alarme::Popup()
{
    if (popup_ == nullptr) {
        popup_ = std::make_unique<frmPopup>(geral_, platform_, janela_, relatorio_);
        connect(popup_.get(), &RisingCard::Unloaded, this, &Alarme::Popup_Unload);
        connect(popup_.get(), &frmPopup::Adiada, this, &Alarme::Adiar);
    }
    return *popup_;
}

// Behind a modal form it could not be clicked, and nobody could reach that form past it: a later tick shows
// it.
void Alarme::Mostrar_Popup()
{
    if (QApplication::activeModalWidget() == nullptr) Popup().show();
}

void Alarme::Popup_Unload() { popup_.release()->deleteLater(); }

bool Alarme::Responder() { return popup_ != nullptr && popup_->answer(); }

void Alarme::Fechar_Cartao()
{
    if (popup_ != nullptr) popup_->Fechar_Cartao();
}

// Somebody at another desk has moved or deleted the task, or answered for it.
void Alarme::Tarefas_Mudaram()
{
    lidas_.Largar();
    if (popup_ == nullptr || !geral_.de.Num_Servidor()) return;
    lidas_.Por_Em_Dia();
    if (!popup_->Tem_Cartao() && !Ha_Vencidas()) popup_->sink();
}

bool Alarme::Ha_Vencidas()
{
    const QDateTime agora = platform_.clock.now();
    Recordset rs = lidas_.Linhas();
    return rs.State() == Recordset::Open && Ler(rs, [&](const Recordset &linha) {
                                                return TarefasLidas::Vencida(linha, agora) ||
                                                       TarefasLidas::De_Um_Dia_Anterior(linha, agora);
                                            }).toca;
}
