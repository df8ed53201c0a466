#include "online/Presenca.h"

#include "data/EstadoMessenger.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "store/Row.h"

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>

using namespace Qt::StringLiterals;

Presenca::Presenca(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela),
      geral_(geral),
      platform_(platform),
      txtEmail1(*janela.txtEmail1),
      txtEmail2(*janela.txtEmail2),
      imgEmail1(*janela.imgEmail1),
      imgEmail2(*janela.imgEmail2),
      messenger(*janela.messenger),
      mnuMessenger(*janela.mnuMessenger),
      RightClickMessenger(*janela.RightClickMessenger)
{
    connect(&geral_.temporizadores.TimerStatusOfContact, &QTimer::timeout, this,
            &Presenca::ActualizarEstadoMessenger);
    for (QAction *comando : {&messenger, &mnuMessenger, &RightClickMessenger})
        connect(comando, &QAction::triggered, this, &Presenca::Conversar);
    connect(&imgEmail1, &IconLabel::Click, this, [this] {
        if (EmailMessenger == "1"_L1 && estado_messenger::Presente(EstadoMessenger)) Conversar();
    });
}

void Presenca::Mostrar_Guardado(const QString &MSNMessenger)
{
    EmailMessenger.clear();
    if (!txtEmail1.text().isEmpty())
        EmailMessenger = u"1"_s;
    else if (!txtEmail2.text().isEmpty())
        EmailMessenger = u"2"_s;
    EstadoMessenger = MSNMessenger;
    Anotar(MSNMessenger);
    Mostrar_Estado();
}

// Other rows may carry the same address, with another presence that is known already.
void Presenca::Anotar(const QString &MSNMessenger)
{
    if (!geral_.de.Num_Servidor()) return;
    for (const QLineEdit *morada : {&txtEmail1, &txtEmail2})
        if (!morada->text().isEmpty()) no_servidor_[morada->text().toCaseFolded()] << MSNMessenger;
}

// The first address wins as soon as the messenger knows it; the second is only looked at when the first says
// nothing.
void Presenca::ActualizarEstadoMessenger()
{
    if (txtEmail1.text().isEmpty() && txtEmail2.text().isEmpty()) return;
    EmailMessenger = u"1"_s;
    Ler_Estado(txtEmail1.text());
    const bool espera_pelo_segundo = EstadoMessenger.isEmpty() && !txtEmail2.text().isEmpty();
    if (!espera_pelo_segundo) Mostrar_Estado();
    Guardar_Estado(txtEmail1.text());

    if (!espera_pelo_segundo && EstadoMessenger != "0"_L1) return;
    EmailMessenger = u"2"_s;
    Ler_Estado(txtEmail2.text());
    Mostrar_Estado();
    Guardar_Estado(txtEmail2.text());
}

// With the messenger switched off there is nobody to ask, and so no status.
void Presenca::Ler_Estado(const QString &morada)
{
    EstadoMessenger.clear();
    if (geral_.MessengerActivo != 1) return;
    if (const auto status = platform_.messenger.status(morada)) EstadoMessenger = QString::number(*status);
}

// One address bears the presence, and the other one has the plain picture.
void Presenca::Mostrar_Estado()
{
    const bool segundo = EmailMessenger == "2"_L1;
    imgEmail1.setIcon(estado_messenger::Retrato(segundo ? QString() : EstadoMessenger));
    imgEmail2.setIcon(estado_messenger::Retrato(segundo ? EstadoMessenger : QString()));
    messenger.setIcon(estado_messenger::Botao(EstadoMessenger));
    messenger.setProperty("Image", estado_messenger::Imagem(EstadoMessenger));
    for (QAction *comando : {&messenger, &mnuMessenger, &RightClickMessenger})
        comando->setEnabled(estado_messenger::Ligado(EstadoMessenger));
}

// Every row that carries the address takes the presence.
void Presenca::Guardar_Estado(const QString &morada)
{
    const QString estado = EstadoMessenger.isEmpty() ? u"0"_s : EstadoMessenger;
    skipFailure([&] { Escrever(morada, estado); });
}

// A desk whose messenger is switched off knows nothing that others should see.
bool Presenca::Por_Escrever(const QString &morada, const QString &estado) const
{
    if (!geral_.de.Num_Servidor()) return true;
    const auto la = no_servidor_.constFind(morada.toCaseFolded());
    return geral_.MessengerActivo == 1 && !morada.isEmpty() && la != no_servidor_.cend() &&
           *la != QSet<QString>{estado};
}

void Presenca::Escrever(const QString &morada, const QString &estado)
{
    if (!Por_Escrever(morada, estado)) return;
    geral_.de.Executar("cmdUPDATEMSNMessenger", {estado, morada, morada});
    if (geral_.de.Num_Servidor()) no_servidor_[morada.toCaseFolded()] = {estado};
}

void Presenca::Ler_O_Que_La_Esta()
{
    no_servidor_.clear();
    geral_.de.Percorrer_Presencas([this](const Row &linha) {
        for (const char *coluna : {"Email1", "Email2"}) {
            const QString morada = linha.field(linha.column(coluna)).textOrEmpty().toCaseFolded();
            if (!morada.isEmpty())
                no_servidor_[morada] << linha.field(linha.column("MSNMessenger")).textOrEmpty();
        }
    });
}

void Presenca::SincronizarMessenger()
{
    const auto contactos = platform_.messenger.contacts();
    if (geral_.de.Num_Servidor() && !contactos.isEmpty()) skipFailure([this] { Ler_O_Que_La_Esta(); });
    for (qsizetype i = 0; i < contactos.size(); ++i) {
        const auto &um = contactos[i];
        skipFailure([&] { Escrever(um.address, QString::number(um.status)); });
        const auto percentagem = static_cast<int>((i + 1) * 100 / contactos.size());
        if (percentagem < 100) Q_EMIT Progresso(percentagem);
    }
}

void Presenca::Conversar()
{
    const QString morada = (EmailMessenger == "2"_L1 ? txtEmail2 : txtEmail1).text();
    if (!morada.isEmpty()) platform_.messenger.openConversation(morada);
}
