// A POP server on 127.0.0.1 that plays its part in a written dialogue, well or badly.
#pragma once

#include "testlib/Identidade.h"

#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>

// Each step waits for a command that begins so and gives the answer. An empty command is the greeting, spoken
// unasked.
struct Fala {
    QByteArray comando;
    QByteArray resposta;
};

// The dialogue begins anew with each visitor.
class ServidorPop : public QTcpServer
{
public:
    // What it does when the dialogue is at its end, or in Pinga from the first word on.
    enum class Fim { Serve, Cala, Fecha, Pinga, Sem_Fim };

    explicit ServidorPop(QList<Fala> conversa, Fim fim = Fim::Serve) : falas(std::move(conversa)), fim_(fim)
    {
        listen(QHostAddress::LocalHost);
    }

    void Identificar(const Identidade &identidade)
    {
        certificado = identidade.certificado;
        chave = identidade.chave;
    }

    QList<Fala> falas;
    QList<QByteArray> ouvido;
    int visitas = 0;
    int gota = 30; // ms between two bytes of Pinga
    QSslCertificate certificado;
    QSslKey chave;

protected:
    void incomingConnection(qintptr descritor) override
    {
        ++visitas;
        auto *visita = new Visita{this, falas};
        visita->setSocketDescriptor(descritor);
        connect(visita, &QIODevice::readyRead, visita, [this, visita] {
            while (visita->canReadLine())
                Ouvir(*visita, visita->readLine().trimmed());
        });
        if (falas.isEmpty() && fim_ == Fim::Fecha) return visita->close();
        if (!falas.isEmpty() && falas.constFirst().comando.isEmpty())
            Responder(*visita, visita->resto.takeFirst());
    }

private:
    struct Visita : QSslSocket {
        Visita(QObject *dono, QList<Fala> conversa) : QSslSocket(dono), resto(std::move(conversa)) {}
        QList<Fala> resto;
    };

    void Ouvir(Visita &visita, const QByteArray &comando)
    {
        ouvido << comando;
        if (visita.resto.isEmpty()) {
            if (fim_ == Fim::Fecha) visita.close();
            return;
        }
        const Fala fala = visita.resto.takeFirst();
        if (!comando.startsWith(fala.comando)) return visita.close();
        Responder(visita, fala);
    }

    void Responder(Visita &visita, const Fala &fala)
    {
        if (fim_ == Fim::Pinga) return Pingar(visita, fala.resposta);
        visita.write(fala.resposta);
        if (fala.comando == "STLS") Cifrar(visita);
        if (!visita.resto.isEmpty()) return;
        if (fim_ == Fim::Fecha) visita.disconnectFromHost();
        if (fim_ == Fim::Sem_Fim) Repetir(visita, fala.resposta);
    }

    void Cifrar(Visita &visita)
    {
        visita.flush();
        visita.setLocalCertificate(certificado);
        visita.setPrivateKey(chave);
        visita.startServerEncryption();
    }

    void Pingar(Visita &visita, QByteArray resto)
    {
        auto *gotas = new QTimer(&visita);
        connect(gotas, &QTimer::timeout, &visita, [&visita, gotas, resto]() mutable {
            visita.write(resto.left(1));
            resto.remove(0, 1);
            if (resto.isEmpty()) gotas->deleteLater();
        });
        gotas->start(gota);
    }

    // The last answer over and over, as fast as the other side takes it.
    void Repetir(Visita &visita, const QByteArray &resposta)
    {
        const auto encher = [&visita, resposta] {
            while (visita.state() == QAbstractSocket::ConnectedState && visita.bytesToWrite() < 65536)
                visita.write(resposta);
        };
        connect(&visita, &QIODevice::bytesWritten, &visita, encher);
        encher();
    }

    Fim fim_;
};

inline QList<Fala> Conversa_Boa(const QByteArray &stat = "+OK 2 300\r\n",
                                const QByteArray &nomes = "1 abc\r\n2 def\r\n")
{
    return {{"", "+OK ready <1896.697170952@host>\r\n"},
            {"CAPA", "+OK\r\nUSER\r\nUIDL\r\nLOGIN-DELAY 90\r\n.\r\n"},
            {"USER", "+OK\r\n"},
            {"PASS", "+OK\r\n"},
            {"STAT", stat},
            {"UIDL", "+OK\r\n" + nomes + ".\r\n"},
            {"QUIT", "+OK bye\r\n"}};
}

inline QList<Fala> Conversa_Cifrada()
{
    const QList<Fala> falas{{"", "+OK\r\n"}, {"CAPA", "+OK\r\nSTLS\r\n.\r\n"}, {"STLS", "+OK begin\r\n"}};
    return falas + Conversa_Boa().mid(1);
}
