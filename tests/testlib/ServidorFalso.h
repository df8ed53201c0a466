// A server that several desks share, without a network: a database file behind the same door. It counts what
// is asked of it, can be away, and tells what another desk is said to have changed.
#pragma once

#include "data/Esquema.h"
#include "data/Geral.h"
#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "store/sqlite/SqliteStore.h"

#include <optional>
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
    // The next write is done, and its answer lost along with the server.
    void Perder_A_Proxima_Resposta() { perde_resposta_ = true; }
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

    QString ficheiro_;
    bool perdido_ = false;
    bool perde_resposta_ = false;
    Fate destino_ = Fate::None;
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
        ficheiro_->execute(sql, std::move(values));
        s_.destino_ = s_.perde_resposta_ ? Fate::Arrived : Fate::None;
        if (!std::exchange(s_.perde_resposta_, false)) return;
        s_.Perder();
        s_.Pedido(sql);
    }
    // Nothing is asked for it: what others write is told.
    StoreMark mark() override { return {0, 0, ficheiro_->mark().here}; }
    int written(const QString &sql) const override { return ficheiro_->written(sql); }
    Fate lostWrite() const override { return s_.destino_; }
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
        ficheiro_->allOrNothing(work);
    }
    qint64 lastId() override { return ficheiro_->lastId(); }
    qint64 highestId(const QString &table) override { return ficheiro_->highestId(table); }
    void giveAgainBehind(const QString &table, qint64 last) override
    {
        ficheiro_->giveAgainBehind(table, last);
    }
    QStringList columns(const QString &table) override { return ficheiro_->columns(table); }
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
};

inline std::unique_ptr<Store> ServidorFalso::Abrir(const QString &endereco)
{
    enderecos << endereco;
    if (recusa) throw Failure(Failure::StoreError, endereco, QStringLiteral("refused"), *recusa);
    return std::make_unique<Posto>(*this);
}
