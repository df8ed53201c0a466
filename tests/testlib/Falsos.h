// Stand-ins for the desktop's services. One that is asked something unexpected fails the running test.
#pragma once

#include "platform/Platform.h"

#include <functional>
#include <QList>
#include <QMap>
#include <QStringList>

// A clock that stands still until it is told to move.
class RelogioFalso final : public Clock
{
public:
    explicit RelogioFalso(QDateTime agora) : agora_(std::move(agora)) {}
    QDateTime now() const override { return agora_; }

    void Acertar(const QDateTime &agora) { agora_ = agora; }
    void Avancar_Segundos(qint64 segundos) { agora_ = agora_.addSecs(segundos); }
    void Avancar_Minutos(qint64 minutos) { Avancar_Segundos(minutos * 60); }
    void Avancar_Dias(qint64 dias) { agora_ = agora_.addDays(dias); }

private:
    QDateTime agora_;
};

// Boxes that were announced answer as announced; any other fails the test. What was announced must come.
class CaixasFalsas final : public MessageBoxes
{
public:
    ~CaixasFalsas() override;

    void Espera(const QString &texto, int flags, const QString &titulo, int resposta = answer::ok);
    // A box of which only flags and title are known beforehand.
    void Espera_Qualquer(int flags, const QString &titulo, int resposta = answer::ok);
    void Espera_Erro(int numero);
    // Runs while each box stands, before it is answered.
    void Ao_Mostrar(std::function<void()> entretanto) { entretanto_ = std::move(entretanto); }
    bool Todas_Vistas() const { return esperadas_.isEmpty(); }
    QStringList vistas; // the texts of the boxes that came, in their order

    int show(const QString &text, int flags, const QString &title, QWidget *owner) override;
    void showError(const Failure &failure) override;

private:
    struct Caixa {
        QString texto;
        int flags;
        QString titulo;
        int resposta;
    };
    QList<Caixa> esperadas_;
    std::function<void()> entretanto_;
};

// Dialogs answer what was put ready, in its order; nothing is a cancel. One that nobody expected fails the
// test. What each was asked stands in `perguntas`.
class DialogosFalsos final : public Dialogs
{
public:
    QList<std::optional<QString>> textos; // of openFile, saveFile, folder and input
    QList<std::optional<QFont>> fontes;
    QList<std::optional<QColor>> cores;
    QStringList perguntas; // "openFile <filter> @ <folder>" and the like

    std::optional<QString> openFile(const QString &filter, const QString &folder, QWidget *owner) override;
    std::optional<QString> saveFile(const QString &filter, const QString &file, QWidget *owner) override;
    std::optional<QString> folder(const QString &title, const QString &start, QWidget *owner) override;
    std::optional<QFont> font(const QFont &start, QWidget *owner) override;
    std::optional<QColor> colour(const QColor &start, QWidget *owner) override;
    std::optional<QString> input(const QString &prompt, const QString &title, QWidget *owner) override;
};

class SomFalso final : public Sound
{
public:
    void play(const QString &file) override { tocados << file; }
    QStringList tocados;
};

// Values by "root\\key\\name".
class RegistoFalso final : public Registry
{
public:
    QString readString(Root root, const QString &key, const QString &name) override;
    bool writeString(Root root, const QString &key, const QString &name, const QString &value) override;
    bool deleteValue(Root root, const QString &key, const QString &name) override;
    QMap<QString, QString> valores;
};

class ShellFalsa final : public Shell
{
public:
    void open(const QString &target) override { abertos << target; }
    void openDateAndTimeSettings() override { ++acertos; }
    QStringList abertos;
    void openMailProgram() override { ++correios; }
    int correios = 0; // times the mail program was asked for
    int acertos = 0;  // times the settings of date and time were asked for
};

// A mail checker whose results the test sets. What it was told stands in `historia`: "+
// server|account|password" for each start, "-" for each stop. A stop clears the results, as the real one
// does.
class CorreioFalso final : public MailNotification
{
public:
    void setActivo(bool activo) override;
    void setServidor(const QString &servidor) override { servidor_ = servidor; }
    void setConta(const QString &conta) override { conta_ = conta; }
    void setSenha(const QString &senha) override { senha_ = senha; }
    bool Falhou() const override { return falhou; }
    QString TextoErro() const override { return texto_erro; }
    bool TemCorreio() override { return mensagens > 0; }
    qint16 NumeroMensagens() const override { return mensagens; }

    bool falhou = false;
    QString texto_erro;
    qint16 mensagens = 0;
    QStringList historia;

private:
    QString servidor_, conta_, senha_;
};

// A messenger with the contacts that the test gives it, in their order.
class MensageiroFalso final : public MessengerAPI
{
public:
    std::optional<int> status(const QString &address) override;
    QList<Contact> contacts() override { return contactos; }
    void openConversation(const QString &address) override { conversas << address; }

    QList<Contact> contactos;
    QStringList perguntas; // addresses whose status was asked for
    QStringList conversas;
};

// The end of the process is noted, and the test goes on.
class ProcessoFalso final : public Process
{
public:
    void end() override
    {
        ++fins;
        if (ao_acabar) ao_acabar();
    }
    bool Terminou() const { return fins > 0; }
    std::function<void()> ao_acabar; // what is seen at that moment
    int fins = 0;
};

// Secrets by their keys; there is no store unless the test says so.
class SegredosFalsos final : public SecretStore
{
public:
    bool isThere() override { return ha; }
    std::optional<QString> read(const QString &key) override
    {
        return ha && guardados.contains(key) ? std::optional(guardados.value(key)) : std::nullopt;
    }
    bool write(const QString &key, const QString &, const QString &secret) override
    {
        if (ha) guardados[key] = secret;
        return ha;
    }
    void remove(const QString &key) override { guardados.remove(key); }

    bool ha = false;
    QMap<QString, QString> guardados;
};

// Keeps a record of what was done to the icon: "+1 tip", "-2" and so on, by the number of the picture.
class TabuleiroFalso final : public Tray
{
    Q_OBJECT
public:
    void add(Look look, const QString &tip, QMenu *menu) override;
    void remove(Look look) override;

    bool hasHost() const override { return hospedeiro_; }

    void Clicar(Look look) { Q_EMIT leftButtonDown(look); }
    // A host that shows the icon comes, or the last one goes. At the beginning there is one.
    void Chega_Hospedeiro();
    void Vai_Se_O_Hospedeiro();
    QStringList historia;
    QMenu *menu = nullptr;

private:
    bool hospedeiro_ = true;
};
