#include "online/Presenca.h"

#include "data/EstadoMessenger.h"
#include "data/Geral.h"
#include "platform/Controls.h"
#include "platform/Failure.h"
#include "platform/IconLabel.h"
#include "platform/Platform.h"

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>

using namespace Qt::StringLiterals;

Presenca::Presenca(QMainWindow &janela, Geral &geral, Platform &platform)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      txtEmail1(control<QLineEdit>(janela, u"txtEmail1"_s)),
      txtEmail2(control<QLineEdit>(janela, u"txtEmail2"_s)),
      imgEmail1(control<IconLabel>(janela, u"imgEmail1"_s)),
      imgEmail2(control<IconLabel>(janela, u"imgEmail2"_s))
{
    connect(&geral_.temporizadores.TimerStatusOfContact, &QTimer::timeout, this,
            &Presenca::ActualizarEstadoMessenger);
    for (const auto &comando : {u"messenger"_s, u"mnuMessenger"_s, u"RightClickMessenger"_s})
        connect(&control<QAction>(janela_, comando), &QAction::triggered, this,
                [this] { Conversar(EmailMessenger == "2"_L1 ? txtEmail2.text() : txtEmail1.text()); });
    connect(&imgEmail1, &IconLabel::Click, this, [this] {
        if (EmailMessenger == "1"_L1 && estado_messenger::Presente(EstadoMessenger))
            Conversar(txtEmail1.text());
    });
}

// The first address wins as soon as the messenger knows it; the second is only looked at when the first says
// nothing.
void Presenca::ActualizarEstadoMessenger()
{
    if (txtEmail1.text().isEmpty() && txtEmail2.text().isEmpty()) return;
    EmailMessenger = u"1"_s;
    Ler_Estado(txtEmail1.text());
    const bool espera_pelo_segundo = EstadoMessenger.isEmpty() && !txtEmail2.text().isEmpty();
    if (!espera_pelo_segundo) Mostrar_Estado(imgEmail1);
    Guardar_Estado(txtEmail1.text());

    if (!espera_pelo_segundo && EstadoMessenger != "0"_L1)
        return imgEmail2.setIcon(estado_messenger::Retrato({}));
    EmailMessenger = u"2"_s;
    Ler_Estado(txtEmail2.text());
    Mostrar_Estado(imgEmail2);
    Guardar_Estado(txtEmail2.text());
}

// With the messenger switched off there is nobody to ask, and so no status.
void Presenca::Ler_Estado(const QString &morada)
{
    EstadoMessenger.clear();
    if (geral_.MessengerActivo != 1) return;
    if (const auto status = platform_.messenger.status(morada)) EstadoMessenger = QString::number(*status);
}

void Presenca::Mostrar_Estado(IconLabel &imagem)
{
    imagem.setIcon(estado_messenger::Retrato(EstadoMessenger));
    skipFailure([&] { estado_messenger::Mostrar(janela_, EstadoMessenger); });
}

// Every row that carries the address takes the presence.
void Presenca::Guardar_Estado(const QString &morada)
{
    const QString estado = EstadoMessenger.isEmpty() ? u"0"_s : EstadoMessenger;
    skipFailure([&] { geral_.de.Executar("cmdUPDATEMSNMessenger", {estado, morada, morada}); });
}

void Presenca::SincronizarMessenger()
{
    const auto contactos = platform_.messenger.contacts();
    for (qsizetype i = 0; i < contactos.size(); ++i) {
        const auto &[morada, estado] = contactos[i];
        skipFailure([&] {
            geral_.de.Executar("cmdUPDATEMSNMessenger", {QString::number(estado), morada, morada});
        });
        const auto percentagem = static_cast<int>((i + 1) * 100 / contactos.size());
        if (percentagem < 100) Q_EMIT Progresso(percentagem);
    }
}

void Presenca::Conversar(const QString &morada) { platform_.messenger.openConversation(morada); }
