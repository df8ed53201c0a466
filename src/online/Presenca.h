// The presence of contacts in the desktop's messenger: of the one on the card, as it was stored and then
// every few seconds anew, and of all of them at the start. It alone knows which address of the card the
// presence belongs to, and sets the pictures beside the addresses and the ways to a conversation. Whatever
// the messenger does not answer is skipped without a word. On a server only what changed is written: every write
// there is a trip, and other desks write too.
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>

class Geral;
class IconLabel;
class Janela;
class QAction;
class QLineEdit;
struct Platform;

class Presenca final : public QObject
{
    Q_OBJECT
public:
    Presenca(Janela &janela, Geral &geral, Platform &platform);

    // Another contact's addresses are on the card, or none: what was known of the one before is forgotten,
    // and the stored code shows until the messenger is asked. It stands for the first address that there is.
    void Mostrar_Guardado(const QString &MSNMessenger);

    // Writes the presence of every contact that the messenger knows to all rows that carry the address.
    void SincronizarMessenger();

Q_SIGNALS:
    void Progresso(int percentagem); // of the synchronisation; 100 is never told

private:
    void ActualizarEstadoMessenger();
    void Ler_Estado(const QString &morada);
    void Mostrar_Estado();
    void Guardar_Estado(const QString &morada);
    bool Por_Escrever(const QString &morada, const QString &estado) const;
    void Escrever(const QString &morada, const QString &estado);
    void Ler_O_Que_La_Esta();
    void Anotar(const QString &MSNMessenger);
    void Conversar();

    Geral &geral_;
    Platform &platform_;
    QLineEdit &txtEmail1, &txtEmail2;
    IconLabel &imgEmail1, &imgEmail2;
    QAction &messenger, &mnuMessenger, &RightClickMessenger;
    QString EmailMessenger; // "1" or "2": the address of the card that the presence belongs to; empty without
    QHash<QString, QSet<QString>> no_servidor_; // what its rows hold, by the address in small letters
    QString EstadoMessenger; // the last status as text; empty if the contact wasn't found
};
