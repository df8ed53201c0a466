// An address book on a server that stands in this process: it keeps cards, counts their states and remembers
// what has changed since when. What it is asked it does in one turn of the event loop and answers in another,
// so that whoever gives up in between does not know what was done.
#pragma once

#include "carddav/RemoteBook.h"

#include <map>
#include <memory>
#include <QTimer>

struct ServidorEmMemoria {
    struct Cartao {
        QByteArray etag;
        QByteArray texto;
    };

    void Por(const QString &href, const QByteArray &texto)
    {
        cartoes[href] = {"\"" + QByteArray::number(++versao) + "\"", texto};
        historia[href] = versao;
    }
    void Tirar(const QString &href)
    {
        historia[href] = ++versao;
        cartoes.erase(href); // last: it may be the key itself
    }
    RemoteMember Membro(const QString &href) const
    {
        return {href, da_marcas ? cartoes.at(href).etag : QByteArray()};
    }

    RemoteChanges Desde(const QByteArray &testemunho) const
    {
        RemoteChanges mudancas;
        const bool conhecido = da_testemunhos && testemunho.startsWith(epoca + ':');
        mudancas.whole = !conhecido;
        if (da_testemunhos) mudancas.token = epoca + ':' + QByteArray::number(versao);
        const int desde = conhecido ? testemunho.mid(epoca.size() + 1).toInt() : 0;
        for (const auto &[href, quando] : historia) {
            if (conhecido && quando <= desde) continue;
            if (cartoes.contains(href))
                mudancas.changed << Membro(href);
            else if (conhecido)
                mudancas.removed << href;
        }
        return mudancas;
    }

    std::map<QString, Cartao> cartoes;
    std::map<QString, int> historia;
    int versao = 0;
    QByteArray epoca = "a"; // another one: older tokens are forgotten
    bool da_marcas = true;
    bool da_testemunhos = true;
    bool devolve_o_texto = false; // with what was written, as where it had to be fetched
    QStringList pedidos;          // "changes", "fetch 3", "create /x", …
    std::function<RemoteError(const QString &pedido)> falha = [](const QString &) { return RemoteError(); };
    std::function<int(const QString &pedido)> demora = [](const QString &) { return 0; }; // ms before it is done
    // Of a single card that was asked for.
    std::function<RemoteError(const QString &href)> nao_entrega = [](const QString &) {
        return RemoteError();
    };
    std::function<QByteArray(const QByteArray &)> escreve = [](const QByteArray &texto) { return texto; };
    std::function<QString(const QString &href)> nomeia = [](const QString &href) { return href; }; // what it is given
};

class LivroEmMemoria final : public RemoteBook
{
public:
    explicit LivroEmMemoria(ServidorEmMemoria &servidor) : s_(servidor) {}

    void changesSince(const QByteArray &testemunho, ChangesAnswer resposta) override
    {
        Fazer(QStringLiteral("changes"), [=, this](const RemoteError &erro) {
            const RemoteChanges mudancas = erro ? RemoteChanges() : s_.Desde(testemunho);
            Responder([=] { resposta(erro, mudancas); });
        });
    }

    void fetch(const QStringList &hrefs, CardsPortion porcao, EndAnswer fim) override
    {
        Fazer(QStringLiteral("fetch %1").arg(hrefs.size()), [=, this](const RemoteError &erro) {
            QList<RemoteCard> cartoes;
            if (!erro)
                for (const QString &href : hrefs)
                    cartoes << Um(href);
            for (qsizetype i = 0; i < cartoes.size(); i += 7)
                Responder([porcao, parte = cartoes.mid(i, 7)] { porcao(parte); });
            Responder([=] { fim(erro); });
        });
    }

    QString hrefFor(const QString &uid) const override { return QStringLiteral("/livro/%1.vcf").arg(uid); }

    void create(const QString &href, const QByteArray &cartao, WrittenAnswer resposta) override
    {
        Fazer(QStringLiteral("create ") + href, [=, this](RemoteError erro) {
            if (!erro && s_.cartoes.contains(href)) erro.kind = RemoteError::Kind::Changed;
            Escrito(erro, href, cartao, resposta);
        });
    }

    void replace(const QString &href, const QByteArray &etag, const QByteArray &cartao,
                 WrittenAnswer resposta) override
    {
        Fazer(QStringLiteral("replace ") + href, [=, this](RemoteError erro) {
            const auto antes = s_.cartoes.find(href);
            const bool outro = antes == s_.cartoes.end() || (!etag.isEmpty() && antes->second.etag != etag);
            if (!erro && outro) erro.kind = RemoteError::Kind::Changed;
            Escrito(erro, href, cartao, resposta);
        });
    }

    void remove(const QString &href, const QByteArray &etag, EndAnswer resposta) override
    {
        Fazer(QStringLiteral("remove ") + href, [=, this](RemoteError erro) {
            const auto antes = s_.cartoes.find(href);
            if (!erro && antes != s_.cartoes.end()) {
                if (!etag.isEmpty() && antes->second.etag != etag)
                    erro.kind = RemoteError::Kind::Changed;
                else
                    s_.Tirar(href);
            }
            Responder([=] { resposta(erro); });
        });
    }

    void cancel() override { vivo_ = std::make_unique<QObject>(); }

private:
    RemoteCard Um(const QString &href) const
    {
        const auto achado = s_.cartoes.find(href);
        if (achado == s_.cartoes.end())
            return {href, {}, {}, {RemoteError::Kind::NotFound, 404, QStringLiteral("gone")}};
        if (const RemoteError erro = s_.nao_entrega(href)) return {href, {}, {}, erro};
        return {href, s_.Membro(href).etag, achado->second.texto, {}};
    }

    void Escrito(const RemoteError &erro, const QString &href, const QByteArray &cartao,
                 const WrittenAnswer &resposta)
    {
        RemoteWritten escrito{s_.nomeia(href), {}, {}};
        if (!erro) {
            s_.Por(escrito.href, s_.escreve(cartao));
            escrito.etag = s_.Membro(escrito.href).etag;
            if (s_.devolve_o_texto) escrito.text = s_.cartoes.at(escrito.href).texto;
        }
        Responder([=] { resposta(erro, escrito); });
    }

    void Fazer(const QString &pedido, const std::function<void(const RemoteError &)> &trabalho)
    {
        QTimer::singleShot(s_.demora(pedido), vivo_.get(), [=, this] {
            s_.pedidos << pedido;
            trabalho(s_.falha(pedido));
        });
    }
    void Responder(const std::function<void()> &resposta) { QTimer::singleShot(0, vivo_.get(), resposta); }

    ServidorEmMemoria &s_;
    std::unique_ptr<QObject> vivo_ = std::make_unique<QObject>();
};
