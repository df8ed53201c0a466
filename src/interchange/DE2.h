// An older database, opened for reading: this program's own kind, or the kind that the releases before it
// wrote. Its kind is told by its first bytes, whatever it is called. What the merge reads of it is taken into
// memory when it is opened, and the file let go: no lock on it is held or waited for later on, and nothing is
// left beside it. Eight commands read it, and two questions what only this program's own kind has; nothing
// writes.
#pragma once

#include "data/CartoesGuardados.h"
#include "store/Connection.h"

#include <array>
#include <functional>
#include <QString>

class DE2
{
public:
    enum Comando {
        Morvex5_SELECT_TblLista,
        Morvex5_Count_Registos,
        Morvex5_SELECT_TblGrupos, // takes an ID
        Morvex5_SELECT_TblMemos,
        Morvex5_SELECT_TblUsers, // takes an ID
        Morvex5_Count_Memos,
        Morvex5_SELECT_TblTarefas,
        Morvex5_Count_Tarefas,
        Comandos
    };

    // So large a file is not read: what it takes in memory, four times its size at most, stays below a
    // gigabyte.
    static constexpr qint64 maior_ficheiro = qint64{256} << 20;

    // Whether that file, with what stands in a side file of it, is larger.
    static bool Grande_Demais(const QString &caminho);

    // Raises Failure for a file that can't be opened: no database, a damaged one, one with a password, or one
    // that is too large. Of a damaged file that opens, the commands over a damaged table fail; of one that
    // has views in the place of the tables, all do.
    explicit DE2(const QString &caminho);

    // Closes the command's recordset if it is open, and opens it anew.
    Recordset &Abrir(Comando comando);
    Recordset &Abrir(Comando comando, const QString &ID);

    // The same for all rows of a table, one after the other: so they need not stand in memory together.
    void Percorrer(Comando comando, const std::function<void(const Recordset &)> &linha);

    // The picture that a contact's column names, and the card kept of the contact of that old ID; empty where
    // the database has none, or is of a kind or an age that has none at all.
    QByteArray Fotografia(const QString &nome);
    CartaoGuardado Cartao(const QString &ID);

    // The connection closed, every command fails.
    void Fechar_cn();

private:
    Recordset &Correr(Comando comando, const std::vector<StoreValue> &valores);
    void Abrir_Proprio(const QString &caminho);
    bool Tem_Vistas();
    void Carregar_Antigo(const QString &caminho);

    Connection cn_;
    bool tem_fotografias_ = false;
    bool tem_cartoes_ = false;
    std::array<Recordset, Comandos> conjuntos_;
};
