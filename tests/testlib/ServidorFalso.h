// A server that several desks share, without a network: a database file behind the same door. It counts what
// is asked of it, can be away, and tells what another desk is said to have changed.
#pragma once

#include "data/Geral.h"
#include "platform/Failure.h"
#include "store/sqlite/SqliteStore.h"

#include <optional>
#include <QScopedValueRollback>
#include <QStringList>

class ServidorFalso
{
public:
    static QString Endereco() { return QStringLiteral("postgresql://morvex@servidor/morvex"); }

    explicit ServidorFalso(QString ficheiro) : ficheiro_(std::move(ficheiro)) {}

    // Who opens it.
    Connection::ServerOpener Abridor()
    {
        return [this](const QString &endereco) { return Abrir(endereco); };
    }

    // From now on the book of that installation lies here, and its config.ini says so.
    void Servir(Geral &geral)
    {
        geral.de.Fechar_Ligacao();
        geral.CaminhoBD = Endereco();
        geral.ini.Escrever_Ini(QStringLiteral("basedados"), QStringLiteral("caminhobd"), Endereco());
        geral.de.Servir_De(Abridor());
    }

    // What reached it since the last Esquecer(): each is a trip.
    int Comandos() const { return static_cast<int>(pedidos.size()); }
    void Esquecer() { pedidos.clear(); }
    QStringList pedidos;   // the statements
    QStringList enderecos; // with which it was opened

    // Every command fails, and whoever listens hears of it.
    void Perder()
    {
        perdido_ = true;
        if (ouvinte_.reached) ouvinte_.reached(Reach::Lost);
    }
    void Voltar()
    {
        perdido_ = false;
        if (ouvinte_.reached) ouvinte_.reached(Reach::There);
    }
    // The next write is done, and its answer lost along with the server. What is written as one counts as one.
    void Perder_A_Proxima_Resposta() { perde_ = Fate::Arrived; }
    // The next write is lost on its way there, along with the server.
    void Perder_A_Proxima_Escrita() { perde_ = Fate::NotArrived; }
    // What another desk has done.
    void Mudou(const QString &tabela, StoreChange::What que, const QList<int> &ids)
    {
        if (ouvinte_.changed) ouvinte_.changed({tabela, que, ids, false});
    }
    void Mudou(const QString &tabela)
    {
        if (ouvinte_.changed) ouvinte_.changed({tabela, StoreChange::What::Changed, {}, true});
    }

    // How the next openings fail; none: they succeed.
    std::optional<Failure::Kind> recusa;
    std::optional<int> passos; // of the schema, in the place of the file's own
    std::function<bool(const QString &sql)> falha_a_pergunta; // to which questions no answer comes

private:
    class Posto;
    std::unique_ptr<Store> Abrir(const QString &endereco);
    void Pedido(const QString &sql)
    {
        if (perdido_)
            throw Failure(Failure::StoreError, Endereco(), QStringLiteral("the server went away"),
                          Failure::Kind::ServerLost);
        if (!junta_) pedidos << sql;
    }

    void Perder_Se_Pedido()
    {
        if (perde_ == Fate::None) return;
        perdidas_ << std::exchange(perde_, Fate::None);
        Perder();
        Pedido({});
    }

    QString ficheiro_;
    bool perdido_ = false;
    Fate perde_ = Fate::None; // what becomes of the next write, if it is to be lost
    QList<Fate> perdidas_;
    bool junta_ = false; // what is gathered is one trip
    Store::Listener ouvinte_;
};

// The connection of one desk to it.
class ServidorFalso::Posto final : public Store
{
public:
    explicit Posto(ServidorFalso &servidor) : s_(servidor), ficheiro_(SqliteStore::open(servidor.ficheiro_))
    {
    }

    QString place() const override { return Endereco(); }
    Recordset query(const QString &sql, const Values &values) override
    {
        s_.Pedido(sql);
        if (s_.falha_a_pergunta && s_.falha_a_pergunta(sql))
            throw Failure(Failure::StoreError, sql, QStringLiteral("no answer"));
        return ficheiro_->query(sql, values);
    }
    void rows(const QString &sql, const Values &values, const EachRow &row) override
    {
        s_.Pedido(sql);
        ficheiro_->rows(sql, values, row);
    }
    bool rowsWanted(const QString &sql, const Values &values, const QString &columns, const Wanted &wanted,
                    const EachRow &row) override
    {
        s_.Pedido(sql);
        return ficheiro_->rowsWanted(sql, values, columns, wanted, row);
    }
    void execute(const QString &sql, Values values) override
    {
        s_.Pedido(sql);
        if (tudo_) return ficheiro_->execute(sql, std::move(values));
        if (s_.perde_ != Fate::NotArrived) ficheiro_->execute(sql, std::move(values));
        s_.Perder_Se_Pedido();
    }
    // Nothing is asked for it: what others write is told.
    StoreMark mark() override { return {0, 0, ficheiro_->mark().here}; }
    int written(const QString &sql) const override { return ficheiro_->written(sql); }
    int lostWrites() const override { return static_cast<int>(s_.perdidas_.size()); }
    Fate fateOf(int lost) const override
    {
        const Fate known = s_.perdidas_.value(lost - 1, Fate::None);
        return known != Fate::None && s_.perdido_ && lost == lostWrites() ? Fate::Unknown : known;
    }
    int undone() const override { return ficheiro_->undone(); }
    void tryWriting() override
    {
        s_.Pedido(QStringLiteral("tryWriting"));
        ficheiro_->tryWriting();
    }
    void waitingOnce(const Work &work) override { ficheiro_->waitingOnce(work); }
    void gathering(const Work &work) override
    {
        s_.Pedido(QStringLiteral("gathering"));
        s_.junta_ = true;
        ficheiro_->gathering(work);
        s_.junta_ = false;
    }
    void allOrNothing(const Work &work) override
    {
        s_.Pedido(QStringLiteral("allOrNothing"));
        const QScopedValueRollback tudo(tudo_, true);
        ficheiro_->allOrNothing([&] {
            work();
            if (s_.perde_ == Fate::NotArrived) s_.Perder_Se_Pedido();
        });
        s_.Perder_Se_Pedido();
    }
    qint64 lastId() override { return ficheiro_->lastId(); }
    qint64 highestId(const QString &table) override { return ficheiro_->highestId(table); }
    void giveAgainBehind(const QString &table, qint64 last) override
    {
        ficheiro_->giveAgainBehind(table, last);
    }
    QStringList columns(const QString &table) override { return ficheiro_->columns(table); }
    QStringList indexes(const QString &table) override { return ficheiro_->indexes(table); }
    void setSchemaNumber(int steps) override { ficheiro_->setSchemaNumber(steps); }
    int schemaNumber() override { return s_.passos.value_or(ficheiro_->schemaNumber()); }
    void copyTo(const FileCopy &copia) override
    {
        s_.Pedido(QStringLiteral("copyTo"));
        ficheiro_->copyTo(copia);
    }
    const Dialect &dialect() const override { return ficheiro_->dialect(); }
    void listen(const Listener &ouvinte) override { s_.ouvinte_ = ouvinte; }

private:
    ServidorFalso &s_;
    std::unique_ptr<SqliteStore> ficheiro_;
    bool tudo_ = false; // what is written goes as one
};

inline std::unique_ptr<Store> ServidorFalso::Abrir(const QString &endereco)
{
    enderecos << endereco;
    if (recusa) throw Failure(Failure::StoreError, endereco, QStringLiteral("refused"), *recusa);
    return std::make_unique<Posto>(*this);
}
