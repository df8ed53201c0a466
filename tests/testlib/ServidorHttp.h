// A web server on 127.0.0.1 that answers as it is told, well or badly, in the clear or encrypted.
#pragma once

#include "testlib/Identidade.h"

#include <algorithm>
#include <functional>
#include <QHash>
#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>
#include <QUrl>

struct Pedido {
    QByteArray verbo;
    QByteArray caminho;                       // como veio
    QHash<QByteArray, QByteArray> cabecalhos; // em minúsculas
    QByteArray corpo;

    QByteArray operator[](const QByteArray &cabecalho) const { return cabecalhos.value(cabecalho); }
};

struct Resposta {
    // What is done behind the body.
    enum class Depois { Nada, Cala, Fecha, Pinga, Sem_Fim };

    int estado = 200;
    QByteArray corpo = {};
    QList<QByteArray> cabecalhos = {}; // "Nome: valor"
    Depois depois = Depois::Nada;
    QByteArray cru = {}; // takes the place of everything else
    int atraso = 0;      // ms

    static Resposta Calada() { return {0, {}, {}, Depois::Cala}; }
    static Resposta Para(const QString &endereco, int estado = 301)
    {
        return {estado, {}, {"Location: " + endereco.toUtf8()}};
    }
    static Resposta Xml(const QByteArray &corpo)
    {
        return {207, corpo, {"Content-Type: application/xml; charset=utf-8"}};
    }
};

class ServidorHttp : public QTcpServer
{
public:
    explicit ServidorHttp(std::function<Resposta(const Pedido &)> responder)
        : responder_(std::move(responder))
    {
        listen(QHostAddress::LocalHost);
    }

    void Cifrar(const Identidade &identidade) { identidade_ = &identidade; }

    QString Endereco(const QString &caminho = QStringLiteral("/")) const
    {
        return QStringLiteral("%1://127.0.0.1:%2%3")
            .arg(identidade_ ? QStringLiteral("https") : QStringLiteral("http"))
            .arg(serverPort())
            .arg(caminho);
    }
    QList<QByteArray> Verbos() const
    {
        QList<QByteArray> verbos;
        for (const Pedido &pedido : pedidos)
            verbos << pedido.verbo;
        return verbos;
    }
    int Ligacoes() const { return int(findChildren<QSslSocket *>().size()); } // open ones

    QList<Pedido> pedidos;
    int a_correr = 0; // questions without an answer yet
    int mais_ao_mesmo_tempo = 0;

protected:
    void incomingConnection(qintptr descritor) override
    {
        auto *visita = new QSslSocket(this);
        visita->setSocketDescriptor(descritor);
        visita->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        auto *lido = new QByteArray;
        connect(visita, &QObject::destroyed, [lido] { delete lido; });
        connect(visita, &QIODevice::readyRead, visita, [this, visita, lido] { Ouvir(*visita, *lido); });
        connect(visita, &QAbstractSocket::disconnected, visita, &QObject::deleteLater);
        if (!identidade_) return;
        visita->setLocalCertificate(identidade_->certificado);
        visita->setPrivateKey(identidade_->chave);
        visita->startServerEncryption();
    }

private:
    void Ouvir(QSslSocket &visita, QByteArray &lido)
    {
        lido += visita.readAll();
        if (lido.startsWith('\x16')) { // somebody begins to encrypt
            visita.write("HTTP/1.1 400 X\r\n\r\n");
            return visita.disconnectFromHost();
        }
        while (true) {
            const qsizetype fim = lido.indexOf("\r\n\r\n");
            if (fim < 0) return;
            Pedido pedido = Cabecalho(lido.left(fim));
            const qsizetype tamanho = pedido["content-length"].toLongLong();
            if (lido.size() < fim + 4 + tamanho) return;
            pedido.corpo = lido.mid(fim + 4, tamanho);
            lido.remove(0, fim + 4 + tamanho);
            pedidos << pedido;
            Responder(visita, responder_(pedido));
        }
    }

    static Pedido Cabecalho(const QByteArray &texto)
    {
        Pedido pedido;
        QList<QByteArray> linhas = texto.split('\n');
        const QList<QByteArray> primeira = linhas.takeFirst().trimmed().split(' ');
        pedido.verbo = primeira.value(0);
        pedido.caminho = primeira.value(1);
        for (const QByteArray &linha : std::as_const(linhas))
            pedido.cabecalhos[linha.left(linha.indexOf(':')).trimmed().toLower()] =
                linha.mid(linha.indexOf(':') + 1).trimmed();
        return pedido;
    }

    void Responder(QSslSocket &visita, const Resposta &resposta)
    {
        mais_ao_mesmo_tempo = std::max(mais_ao_mesmo_tempo, ++a_correr);
        if (resposta.atraso == 0) return Escrever(visita, resposta);
        QTimer::singleShot(resposta.atraso, &visita,
                           [this, &visita, resposta] { Escrever(visita, resposta); });
    }

    void Escrever(QSslSocket &visita, const Resposta &resposta)
    {
        using Depois = Resposta::Depois;
        --a_correr;
        if (resposta.estado == 0 && resposta.cru.isEmpty()) return;
        visita.write(resposta.cru.isEmpty() ? Bytes(resposta) : resposta.cru);
        if (resposta.depois == Depois::Fecha) visita.disconnectFromHost();
        if (resposta.depois == Depois::Pinga) Pingar(visita);
        if (resposta.depois == Depois::Sem_Fim) Encher(visita);
    }

    static QByteArray Bytes(const Resposta &resposta)
    {
        QByteArray bytes = "HTTP/1.1 " + QByteArray::number(resposta.estado) + " X\r\n";
        for (const QByteArray &cabecalho : resposta.cabecalhos)
            bytes += cabecalho + "\r\n";
        const bool com_fim = resposta.depois == Resposta::Depois::Nada;
        if (com_fim && resposta.estado != 204)
            bytes += "Content-Length: " + QByteArray::number(resposta.corpo.size()) + "\r\n";
        return bytes + "\r\n" + resposta.corpo;
    }

    // A blank now and then, for ever.
    static void Pingar(QSslSocket &visita)
    {
        auto *gotas = new QTimer(&visita);
        connect(gotas, &QTimer::timeout, &visita, [&visita] { visita.write(" "); });
        gotas->start(20);
    }

    // Blanks as fast as the other side takes them.
    static void Encher(QSslSocket &visita)
    {
        const auto encher = [&visita] {
            while (visita.state() == QAbstractSocket::ConnectedState && visita.bytesToWrite() < 65536)
                visita.write(QByteArray(65536, ' '));
        };
        connect(&visita, &QIODevice::bytesWritten, &visita, encher);
        encher();
    }

    std::function<Resposta(const Pedido &)> responder_;
    const Identidade *identidade_ = nullptr;
};
