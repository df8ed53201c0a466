// The one connection to morvex.mdb and the named commands over it. Comes to life at the first command and
// lives until the process ends.
#pragma once

#include "data/CaminhoDaBase.h"
#include "data/Comandos.h"
#include "data/LinhaInteira.h"
#include "store/Connection.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <QSet>
#include <QString>

class DE
{
public:
    // The path is the process-wide CaminhoBD, read when the connection is made. If it is empty then, it
    // becomes the file morvex.mdb in that folder (see CaminhoDaBase).
    DE(QString &CaminhoBD, QString pasta);

    // Which file it is.
    CaminhoDaBase &Base() { return base_; }

    // Runs a command that returns rows: closes its recordset if an earlier caller left it open, and opens it
    // on the first row. The recordset belongs to DE; whoever opened it closes it. Raises Failure for a
    // parameter that does not fit its column and for whatever the store refuses.
    Recordset &Abrir(ComandoComLinhas comando, std::initializer_list<Value> parametros = {});

    // The same without a recordset, for many rows of which little is wanted: hands on each where the store
    // keeps it (store/Row). The work must not run that command again.
    void Percorrer(ComandoComLinhas comando, std::initializer_list<Value> parametros,
                   const std::function<void(const Row &)> &linha);

    // ID, Nome and Grupo of cmdListarTodosContactos, which for thousands takes half its time where the groups are
    // looked up once and not for each contact. The work must not run that command again.
    void Percorrer_Nomes(const Value &IdUtilizador, const std::function<void(const Row &)> &linha);

    // As Percorrer, for the few rows whose two columns are wanted, which is asked before they are sorted. Tells
    // whether the command has rows at all.
    bool Percorrer_As_Que(ComandoComLinhas comando, const Value &parametro, QLatin1StringView colunas,
                          const Wanted &querida, const std::function<void(const Row &)> &linha);

    // Runs a command that writes. What it did is in the file when it returns.
    void Executar(ComandoSemLinhas comando, std::initializer_list<Value> parametros = {});

    // The same for a row of long work that may have to be done again (see LinhasJaVindas): the keys that a
    // server keeps, and those that it need not keep any longer. A file keeps none.
    void Executar_Com_Chave(ComandoSemLinhas comando, std::initializer_list<Value> parametros,
                            const QUuid &chave);
    QSet<QUuid> Chaves() { return Ligacao().keys(); }
    void Largar_Chaves(const QSet<QUuid> &chaves) { Ligacao().dropKeys(chaves); }

    // Runs that with the writes of its commands gathered: they cost a fraction, and all that were done are in
    // the file when this returns or raises.
    void Juntar(const std::function<void()> &trabalho);
    // The same for what ends with the first that fails: behind it nothing was done.
    void Juntar_Por_Ordem(const std::function<void()> &trabalho);

    // Tries whether the database takes a write, and takes it back. Raises Failure where it takes none. An
    // older one that could not be brought up to date when it was opened is now.
    void Experimentar_Escrita();

    // Whether the database has all tables. An older one that takes no writing lacks those that came later.
    bool Em_Dia();

    // Runs that with a lock of somebody else's waited for once, not at each command.
    void Esperar_Uma_Vez(const std::function<void()> &trabalho) { Ligacao().waitingOnce(trabalho); }

    // How often the command has written so far: what is counted is in the file.
    int Escritos(ComandoSemLinhas comando) const;

    // How many portions of gathered writes were undone so far: what was read of such a one may not be there.
    int Desfeitas() const { return ligacao_.undone(); }

    // The groups with a higher ID than that, by their ID. Asked for a name at a time, thousands of them would
    // each walk over all the others.
    Recordset Grupos_Depois_De(qint64 ID);

    // The rows of all texts: their number and the seven languages.
    void Percorrer_Textos(const std::function<void(const Row &)> &linha);

    // The rows of contacts with an address: Email1, Email2 and MSNMessenger.
    void Percorrer_Presencas(const std::function<void(const Row &)> &linha);

    // What undoing a deletion asks beyond the commands: rows as they stand, the same rows put back with their
    // IDs, and contacts put back into the group out of which they were moved.
    LinhasInteiras Ler_Inteiras(std::string_view tabela, std::string_view coluna, const Value &valor);
    // A row whose ID is Null receives the next one. Returns the ID of the row.
    QString Repor_Inteira(std::string_view tabela, const LinhaInteira &linha);
    void Repor_No_Grupo(const Value &ID, const Value &grupo, const Value &de_onde_esta);

    // What an import asks beyond the commands. Hands on the rows of the contacts that the user sees, by their
    // ID: those with a higher one than that, at most so many.
    void Percorrer_A_Vista(const Value &IdUtilizador, qint64 depois_de, int quantos,
                           const std::function<void(const Row &)> &linha);
    // The highest number that the table's counter has ever given; 0 for none.
    qint64 Ultimo_ID(std::string_view tabela);
    // The number of the row that this connection added last.
    qint64 Acrescentado() { return Ligacao().lastId(); }
    // The numbers behind that one are given once more. The table holds none of them.
    void Recuar_ID(std::string_view tabela, qint64 ultimo);
    // Takes those pictures away that no contact shows.
    void Largar_Fotografias(const QSet<QString> &nomes);

    // Runs that as one: all that its commands write is in the file when this returns, and nothing of it when
    // this raises. An older database that could not be brought up to date when it was opened is tried again
    // before; where it still can't be, that runs without the newer tables.
    void Tudo_Ou_Nada(const std::function<void()> &trabalho);

    // The file of the open database, and whether a path leads to it, under whatever name.
    QString Ficheiro() { return Ligacao().file(); }
    bool E_A_Base_Aberta(const QString &caminho);

    // Another one once the database was changed, by this program or by another one.
    Connection::Mark Marca() { return Ligacao().mark(); }

    // Makes a database file with all that the data are at this moment, while everybody goes on working, here
    // too; what has been done so far, in per cent, is told as it goes on. Raises Failure where there is such
    // a file already, and what the store raises; then there is none.
    void Copiar_Para(const QString &ficheiro, const std::function<void(int)> &feito);

    // Closes the connection, and with it every recordset, so that the file can be copied; and opens it again
    // with the connection string that it has. Between the two no command runs.
    void Fechar_Ligacao();
    void Reabrir_Ligacao();

    // Whether the data lie on a server that several desks share.
    bool Num_Servidor() { return Connection::isAddress(base_.Caminho()); }

    // How many writes have lost their answer since the opening, and what became of one of them, from 1 on.
    int Escritas_Perdidas() const { return ligacao_.lostWrites(); }
    Fate Destino_Da_Escrita(int perdida) const { return ligacao_.fateOf(perdida); }

    // Who hears what other desks change, and that the server is away or back. On a file nobody is told.
    void Ouvir(Store::Listener ouvinte) { ligacao_.setListener(std::move(ouvinte)); }

    // Who opens a server, in the place of the real one.
    void Servir_De(const Connection::ServerOpener &abridor);

    // Tries whether that server answers and has a database of this program, at least as far as its steps go.
    // Raises Failure where not. The connection stays what it is.
    void Experimentar_Endereco(const QString &endereco);

    // Gives up what the store keeps of the file for a next reading.
    void Largar_Memoria() { ligacao_.releaseMemory(); }

    // The recordset of a command, as its last call left it.
    Recordset &Rs(ComandoComLinhas comando) { return conjuntos_[comando.Posicao()]; }

private:
    Connection &Ligacao();
    void Abrir_Ligacao();

    CaminhoDaBase base_;
    Connection ligacao_;
    Connection::ServerOpener abridor_; // none: the real one
    bool em_dia_ = false; // as far as is known
    std::array<Recordset, comandos::catalogo.size()> conjuntos_;
};
