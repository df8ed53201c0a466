// An address book in memory as a server shows it, with the habits and failings of servers to choose from.
#pragma once

#include "testlib/ServidorHttp.h"

#include <optional>
#include <QCryptographicHash>
#include <QMap>
#include <QXmlStreamReader>

struct CartaoDav {
    QByteArray etag;
    QByteArray texto;
};

class LivroDav
{
public:
    enum class Entrada { Livre, Basica, Digest };

    // What stands before the book: the first that answers is heard alone.
    std::function<std::optional<Resposta>(const Pedido &)> antes;

    Entrada entrada = Entrada::Livre;
    QByteArray utilizador = "ana", senha = "segredo9";

    QByteArray casa = "/dav/ana/";
    QByteArray livro = "/dav/ana/contactos/";
    QByteArray principal = "/dav/pessoas/ana/";
    QByteArray nome = "Contactos";
    bool pode_escrever = true;
    bool conhece_sync = true, conhece_multiget = true;
    bool da_etag_ao_escrever = true, da_etag_na_lista = true, da_token = true;
    int por_pagina = 0;      // a list is cut off behind so many, with 507; 0: never
    int estado_do_token = 0; // with which an old token is refused; 0: it is known
    bool reescreve = false;  // names of properties in capitals, as some servers do

    QMap<QByteArray, CartaoDav> cartoes; // by path

    QByteArray Por(const QByteArray &nome_do_cartao, const QByteArray &texto)
    {
        return Guardar(livro + nome_do_cartao, texto);
    }
    void Tirar(const QByteArray &nome_do_cartao)
    {
        cartoes.remove(livro + nome_do_cartao);
        mudancas_ << livro + nome_do_cartao;
    }
    QByteArray Token() const
    {
        return "https://x.invalid/token?n=" + QByteArray::number(mudancas_.size()) + "&a";
    }

    Resposta operator()(const Pedido &pedido)
    {
        if (antes)
            if (const auto resposta = antes(pedido)) return *resposta;
        if (!Entra(pedido)) return Recusa();
        if (pedido.verbo == "PROPFIND") return Propfind(pedido);
        if (pedido.verbo == "REPORT") return Relatorio(pedido);
        if (pedido.verbo == "GET") return Mostrar(pedido);
        if (pedido.verbo == "PUT") return Escrever(pedido);
        if (pedido.verbo == "DELETE") return Apagar(pedido);
        return {405};
    }

    static QByteArray Multistatus(const QByteArray &conteudo)
    {
        return "<?xml version=\"1.0\" encoding=\"utf-8\"?><d:multistatus xmlns:d=\"DAV:\" "
               "xmlns:c=\"urn:ietf:params:xml:ns:carddav\">" +
               conteudo + "</d:multistatus>";
    }
    static QByteArray Uma(const QByteArray &href, const QByteArray &propriedades)
    {
        return "<d:response><d:href>" + href.toPercentEncoding("/") + "</d:href><d:propstat><d:prop>" +
               propriedades + "</d:prop><d:status>HTTP/1.1 200 OK</d:status></d:propstat></d:response>";
    }
    static QByteArray Sem(const QByteArray &href, const QByteArray &estado = "404 Not Found")
    {
        return "<d:response><d:href>" + href.toPercentEncoding("/") + "</d:href><d:status>HTTP/1.1 " +
               estado + "</d:status></d:response>";
    }

private:
    static QByteArray Md5(const QByteArray &texto)
    {
        return QCryptographicHash::hash(texto, QCryptographicHash::Md5).toHex();
    }

    bool Entra(const Pedido &pedido) const
    {
        const QByteArray dito = pedido["authorization"];
        if (entrada == Entrada::Livre) return true;
        if (entrada == Entrada::Basica) return dito == "Basic " + (utilizador + ':' + senha).toBase64();
        QHash<QByteArray, QByteArray> partes;
        for (const QByteArray &parte : dito.mid(7).split(',')) {
            const qsizetype igual = parte.indexOf('=');
            partes[parte.left(igual).trimmed()] = parte.mid(igual + 1).trimmed().replace('"', "");
        }
        const QByteArray a = Md5(utilizador + ":livro:" + senha);
        const QByteArray b = Md5(pedido.verbo + ':' + pedido.caminho);
        return dito.startsWith("Digest ") && partes["nonce"] == "n1" &&
               partes["response"] == Md5(a + ":n1:" + partes["nc"] + ':' + partes["cnonce"] + ":auth:" + b);
    }

    Resposta Recusa() const
    {
        return {401,
                {},
                {entrada == Entrada::Basica
                     ? "WWW-Authenticate: Basic realm=\"livro\", charset=\"UTF-8\""
                     : "WWW-Authenticate: Digest realm=\"livro\", nonce=\"n1\", qop=\"auth\""}};
    }

    QByteArray Guardar(const QByteArray &caminho, QByteArray texto)
    {
        if (reescreve) texto.replace("X-ABLabel", "X-ABLABEL");
        const QByteArray etag = "\"e" + QByteArray::number(++ultimo_) + '"';
        cartoes[caminho] = {etag, texto};
        mudancas_ << caminho;
        return etag;
    }

    QByteArray DoLivro() const
    {
        return Uma(livro, "<d:resourcetype><d:collection/><c:addressbook/></d:resourcetype><d:displayname>" +
                              nome + "</d:displayname>" + Direitos());
    }
    QByteArray Direitos() const
    {
        const QByteArray escrita = pode_escrever ? "<d:privilege><d:write/></d:privilege>" : QByteArray();
        return "<d:current-user-privilege-set><d:privilege><d:read/></d:privilege>" + escrita +
               "</d:current-user-privilege-set>";
    }
    QByteArray DeUm(const QByteArray &caminho) const
    {
        const QByteArray etag = cartoes.value(caminho).etag;
        return Uma(caminho, da_etag_na_lista ? "<d:getetag>" + etag + "</d:getetag>" : QByteArray());
    }

    Resposta Propfind(const Pedido &pedido) const
    {
        const bool dentro = pedido["depth"] == "1";
        const QByteArray caminho = QByteArray::fromPercentEncoding(pedido.caminho);
        const QByteArray pessoa =
            "<d:current-user-principal><d:href>" + principal + "</d:href></d:current-user-principal>";
        if (caminho == livro) {
            QByteArray tudo = DoLivro();
            if (dentro)
                for (auto um = cartoes.cbegin(); um != cartoes.cend(); ++um)
                    tudo += DeUm(um.key());
            return Resposta::Xml(Multistatus(tudo));
        }
        if (caminho == casa)
            return Resposta::Xml(
                Multistatus(Uma(casa, "<d:resourcetype><d:collection/></d:resourcetype>" + pessoa) +
                            (dentro ? DoLivro() : QByteArray())));
        if (caminho == principal)
            return Resposta::Xml(Multistatus(Uma(principal, "<c:addressbook-home-set><d:href>" + casa +
                                                                "</d:href></c:addressbook-home-set>")));
        if (cartoes.contains(caminho)) return Resposta::Xml(Multistatus(DeUm(caminho)));
        if (caminho == "/") return Resposta::Xml(Multistatus(Uma("/", pessoa)));
        return {404};
    }

    Resposta Relatorio(const Pedido &pedido) const
    {
        QXmlStreamReader xml(pedido.corpo);
        xml.readNextStartElement();
        if (QByteArray::fromPercentEncoding(pedido.caminho) != livro) return {404};
        if (xml.name() == QLatin1String("sync-collection"))
            return conhece_sync ? Mudancas(xml) : Resposta{415};
        return conhece_multiget ? Muitos(xml) : Resposta{501};
    }

    Resposta Mudancas(QXmlStreamReader &xml) const
    {
        QByteArray token;
        while (!xml.atEnd())
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("sync-token"))
                token = xml.readElementText().toUtf8();
        qsizetype desde = 0;
        if (!token.isEmpty()) {
            desde = token.mid(token.indexOf("n=") + 2).chopped(2).toLongLong();
            const bool conhecido = token.startsWith("https://x.invalid/token?n=") && token.endsWith("&a");
            if (!conhecido || estado_do_token > 0)
                return {estado_do_token > 0 ? estado_do_token : 403,
                        "<d:error xmlns:d=\"DAV:\"><d:valid-sync-token/></d:error>"};
        }
        return Resposta::Xml(Multistatus(Desde(desde, token.isEmpty())));
    }

    QByteArray Desde(qsizetype desde, bool do_principio) const
    {
        QByteArray conteudo;
        QList<QByteArray> vistos;
        qsizetype ate = desde;
        for (; ate < mudancas_.size(); ++ate) {
            if (por_pagina > 0 && vistos.size() == por_pagina) break;
            const QByteArray &caminho = mudancas_[ate];
            if (vistos.contains(caminho)) continue;
            vistos << caminho;
            if (cartoes.contains(caminho))
                conteudo += DeUm(caminho);
            else if (!do_principio)
                conteudo += Sem(caminho);
        }
        if (ate < mudancas_.size()) conteudo += Sem(livro, "507 Insufficient Storage");
        if (da_token)
            conteudo += "<d:sync-token>https://x.invalid/token?n=" + QByteArray::number(ate) +
                        "&amp;a</d:sync-token>";
        return conteudo;
    }

    Resposta Muitos(QXmlStreamReader &xml) const
    {
        QByteArray conteudo;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != QLatin1String("href"))
                continue;
            const QByteArray caminho = QByteArray::fromPercentEncoding(xml.readElementText().toUtf8());
            const CartaoDav cartao = cartoes.value(caminho);
            const QByteArray texto = QString::fromUtf8(cartao.texto).toHtmlEscaped().toUtf8();
            conteudo += !cartoes.contains(caminho)
                            ? Sem(caminho)
                            : Uma(caminho, "<d:getetag>" + cartao.etag + "</d:getetag><c:address-data>" +
                                               texto + "</c:address-data>");
        }
        return Resposta::Xml(Multistatus(conteudo));
    }

    Resposta Mostrar(const Pedido &pedido) const
    {
        const auto um = cartoes.constFind(QByteArray::fromPercentEncoding(pedido.caminho));
        if (um == cartoes.cend()) return {404};
        return {200, um->texto, {"Content-Type: text/vcard", "ETag: " + um->etag}};
    }

    bool Serve(const Pedido &pedido, const QByteArray &caminho) const
    {
        const QByteArray etag = cartoes.value(caminho).etag;
        if (pedido["if-none-match"] == "*" && !etag.isEmpty()) return false;
        const QByteArray se = pedido["if-match"];
        return se.isEmpty() || (se == "*" ? !etag.isEmpty() : se == etag);
    }

    Resposta Escrever(const Pedido &pedido)
    {
        const QByteArray caminho = QByteArray::fromPercentEncoding(pedido.caminho);
        if (!Serve(pedido, caminho)) return {412};
        const bool novo = !cartoes.contains(caminho);
        const QByteArray etag = Guardar(caminho, pedido.corpo);
        Resposta resposta{novo ? 201 : 204, {}, {}};
        if (da_etag_ao_escrever) resposta.cabecalhos << "ETag: " + etag;
        return resposta;
    }

    Resposta Apagar(const Pedido &pedido)
    {
        const QByteArray caminho = QByteArray::fromPercentEncoding(pedido.caminho);
        if (!Serve(pedido, caminho)) return {412};
        if (cartoes.remove(caminho) == 0) return {404};
        mudancas_ << caminho;
        return {204};
    }

    int ultimo_ = 0;
    QList<QByteArray> mudancas_; // paths, in the order of what happened
};
