// A desk whose group goes with a book on a real server, what stands before that server and counts, and
// another program that keeps the same book in a folder.
#pragma once

#include "carddav/AddressBook.h"
#include "sincronizacao/MesaDaSincronizacao.h"
#include "testlib/Servidor.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

// A server of tests/servidores/carddav with an empty book.
class LivroNoServidor
{
public:
    explicit LivroNoServidor(const QString &especie = u"radicale"_s)
        : porta(Servidor::Porta_Livre()), especie_(especie)
    {
        servidor_.Correr("start", {especie, QString::number(porta)});
    }

    // Why there is none on this machine.
    static QString Falta(const QString &programa)
    {
        return QStandardPaths::findExecutable(programa).isEmpty() ? programa + u" is not installed"_s
                                                                  : QString();
    }

    bool E_Radicale() const { return especie_ == u"radicale"_s; }
    QUrl Endereco(quint16 por = 0) const
    {
        return QUrl(u"http://127.0.0.1:%1%2"_s.arg(por > 0 ? por : porta)
                        .arg(E_Radicale() ? u"/ana/contactos/"_s : u"/ana/contacts/addressbook/"_s));
    }
    RemoteAccount Conta() const
    {
        return E_Radicale() ? RemoteAccount{u"ana"_s, u"segredo9"_s} : RemoteAccount();
    }

    int Processo() const
    {
        QFile ficheiro(servidor_.Pasta() + u"/server.pid"_s);
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll().trimmed().toInt() : 0;
    }

    quint16 porta;

private:
    QString especie_;
    Servidor servidor_{"carddav"};
};

// Stands before the server and counts what it is asked.
class Contador : public QTcpServer
{
public:
    explicit Contador(quint16 porta)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, porta] {
            while (QTcpSocket *aqui = nextPendingConnection())
                Ligar(*aqui, porta);
        });
    }
    struct Contagem {
        int pedidos = 0;
        int recusados = 0; // for want of name and password
        QMap<QByteArray, int> verbos;
    };
    Contagem conta;

private:
    void Ligar(QTcpSocket &aqui, quint16 porta)
    {
        auto *la = new QTcpSocket(&aqui);
        la->connectToHost(QHostAddress::LocalHost, porta);
        connect(&aqui, &QTcpSocket::readyRead, la, [this, &aqui, la] {
            const QByteArray bytes = aqui.readAll();
            for (qsizetype fim = bytes.indexOf(" HTTP/1.1\r\n"); fim >= 0;
                 fim = bytes.indexOf(" HTTP/1.1\r\n", fim + 1)) {
                ++conta.pedidos;
                ++conta.verbos[bytes.mid(bytes.lastIndexOf('\n', fim) + 1).split(' ').constFirst()];
            }
            la->write(bytes);
        });
        connect(la, &QTcpSocket::readyRead, &aqui, [this, &aqui, la] {
            const QByteArray bytes = la->readAll();
            conta.recusados +=
                static_cast<int>(bytes.startsWith("HTTP/1.1 401") || bytes.startsWith("HTTP/1.0 401"));
            aqui.write(bytes);
        });
        connect(&aqui, &QTcpSocket::disconnected, &aqui, &QObject::deleteLater);
        connect(la, &QTcpSocket::disconnected, &aqui, &QTcpSocket::disconnectFromHost);
    }
};

struct MesaComServidor : MesaDaSincronizacao {
    explicit MesaComServidor(std::shared_ptr<LivroNoServidor> l) : livro(std::move(l)) {}

    // Returns what it cost in milliseconds. Through another port where that stands before the server.
    qint64 Correr_De_Verdade(ResultadoDaSincronizacao *resultado = nullptr, quint16 por = 0)
    {
        QElapsedTimer tempo;
        tempo.start();
        std::optional<ResultadoDaSincronizacao> fim;
        Sincronizacao corrida(s.geral, s.relogio,
                              std::make_unique<AddressBook>(livro->Endereco(por), livro->Conta()),
                              Sincronizacao::Modo::Normal);
        QObject::connect(&corrida, &Sincronizacao::Terminada, [&](const auto &r) { fim = r; });
        corrida.Comecar();
        while (!fim)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (fim->fim != ResultadoDaSincronizacao::Fim::Feita)
            qWarning("error %d: %s", static_cast<int>(fim->erro.kind), qPrintable(fim->erro.detail));
        if (resultado != nullptr) *resultado = *fim;
        return tempo.elapsed();
    }

    // The server's whole book, past the run.
    std::map<QString, QByteArray> Tudo_La()
    {
        std::map<QString, QByteArray> tudo;
        AddressBook remoto(livro->Endereco(), livro->Conta());
        bool acabou = false;
        remoto.changesSince({}, [&](const RemoteError &, const RemoteChanges &mudancas) {
            QStringList hrefs;
            for (const RemoteMember &membro : mudancas.changed)
                hrefs << membro.href;
            remoto.fetch(
                hrefs,
                [&](const QList<RemoteCard> &cartoes) {
                    for (const RemoteCard &cartao : cartoes)
                        tudo[cartao.href] = cartao.text;
                },
                [&](const RemoteError &) { acabou = true; });
        });
        while (!acabou)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return tudo;
    }

    QStringList Lidos_La()
    {
        QStringList todos;
        for (const auto &[href, texto] : Tudo_La())
            todos << Lido(Pessoa_Do_Cartao(texto, u"PortuguesPT"_s)->lido.colunas);
        todos.sort();
        return todos;
    }

    void Povoar(int quantos)
    {
        for (int i = 0; i < quantos; ++i)
            Contacto(u"Pessoa %1"_s.arg(i), u"91%1"_s.arg(1000000 + i));
    }

    std::shared_ptr<LivroNoServidor> livro;
};

// vdirsyncer, which keeps the book as one file a card in a folder. Of a card that was changed on both sides
// it takes the server's, and the other one is kept aside.
class PastaSincronizada
{
public:
    explicit PastaSincronizada(const LivroNoServidor &livro, quint16 por = 0)
    {
        QDir(pasta_.path()).mkdir(u"livro"_s);
        Escrever(u"conflito"_s, "#!/bin/sh\ncat \"$1\" >> '" + pasta_.path().toUtf8() +
                                    "/postos_de_lado'\ncp \"$2\" \"$1\"\n");
        QFile::setPermissions(pasta_.filePath(u"conflito"_s), QFile::ReadOwner | QFile::ExeOwner);
        QByteArray quem;
        if (const RemoteAccount conta = livro.Conta(); !conta.user.isEmpty())
            quem = "username = \"" + conta.user.toUtf8() + "\"\npassword = \"" + conta.password.toUtf8() +
                   "\"\n";
        Escrever(u"config"_s, "[general]\nstatus_path = \"" + Na_Pasta("estado") +
                                  "\"\n[pair par]\na = \"pasta\"\nb = \"servidor\"\ncollections = null\n"
                                  "conflict_resolution = [\"command\", \"" +
                                  Na_Pasta("conflito") +
                                  "\"]\n[storage pasta]\ntype = \"filesystem\"\npath = \"" +
                                  Na_Pasta("livro") +
                                  "\"\nfileext = \".vcf\"\n[storage servidor]\ntype = \"carddav\"\nurl = \"" +
                                  livro.Endereco(por).toEncoded() + "\"\n" + quem);
    }

    static QString Falta() { return LivroNoServidor::Falta(u"vdirsyncer"_s); }

    // What it printed; nothing where it failed, which it says on the error output.
    std::optional<QString> Correr()
    {
        if (!descoberto_ && !Pedir(u"discover"_s)) return std::nullopt;
        descoberto_ = true;
        return Pedir(u"sync"_s);
    }

    QStringList Ficheiros() const { return Livro().entryList({u"*.vcf"_s}, QDir::Files, QDir::Name); }
    QByteArray Ler(const QString &ficheiro) const { return Conteudo(Livro().filePath(ficheiro)); }
    void Por(const QString &ficheiro, const QByteArray &texto) { Escrever(u"livro/"_s + ficheiro, texto); }
    void Tirar(const QString &ficheiro) { QFile::remove(Livro().filePath(ficheiro)); }

    // The cards that did not come to their right.
    QString Postos_De_Lado() const
    {
        return QString::fromUtf8(Conteudo(pasta_.filePath(u"postos_de_lado"_s)));
    }

private:
    QDir Livro() const { return QDir(pasta_.filePath(u"livro"_s)); }
    QByteArray Na_Pasta(const char *nome) const { return pasta_.filePath(QLatin1StringView(nome)).toUtf8(); }
    static QByteArray Conteudo(const QString &caminho)
    {
        QFile ficheiro(caminho);
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
    }
    void Escrever(const QString &nome, const QByteArray &bytes)
    {
        QFile ficheiro(pasta_.filePath(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size())
            qFatal("%s", qPrintable(nome));
    }
    std::optional<QString> Pedir(const QString &comando)
    {
        QProcess processo;
        processo.setProcessChannelMode(QProcess::MergedChannels);
        QEventLoop espera; // what stands before the server may be of this process
        QObject::connect(&processo, &QProcess::finished, &espera, &QEventLoop::quit);
        QObject::connect(&processo, &QProcess::errorOccurred, &espera, &QEventLoop::quit);
        processo.start(u"vdirsyncer"_s, {u"-c"_s, pasta_.filePath(u"config"_s), comando});
        processo.closeWriteChannel(); // it must not ask anybody
        if (processo.state() != QProcess::NotRunning) espera.exec();
        const QString dito = QString::fromUtf8(processo.readAll());
        if (processo.exitStatus() == QProcess::NormalExit && processo.exitCode() == 0) return dito;
        qWarning("%s", qPrintable(dito));
        return std::nullopt;
    }

    QTemporaryDir pasta_;
    bool descoberto_ = false;
};
