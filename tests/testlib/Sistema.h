// A whole installation for one test: a folder of its own with the shipped files, a real database in it or on the
// tests' server, the process-wide values, and stand-ins for the desktop.
#pragma once

#include "data/Geral.h"
#include "store/Connection.h"
#include "testlib/AmbienteFalso.h"
#include "testlib/BaseDoPrograma.h"

#include <QTemporaryDir>

// Of a function that is about the file itself: says why it has nothing to ask of a server.
#define SO_NUM_FICHEIRO(porque)                                                                              \
    do {                                                                                                     \
        if (Sistema::Num_Servidor()) QSKIP("only in a file: " porque);                                       \
    } while (false)

class Sistema : public AmbienteFalso
{
public:
    enum class Estado {
        Vazio,    // as it is shipped: no language, no path in config.ini, empty tables
        Semeado,  // a first run in Portuguese has been: groups, samples, path in config.ini
        Sem_Base, // the path is set, the file is gone, or the server has no such database
    };
    enum class Onde {
        Onde_Se_Pede, // in a file, or on the server where this run of the program is for one
        Num_Ficheiro,
    };

    explicit Sistema(Estado estado = Estado::Semeado, const QString &idioma = QStringLiteral("PortuguesPT"),
                     Onde onde = Onde::Onde_Se_Pede);
    ~Sistema();
    Sistema(const Sistema &) = delete;
    Sistema &operator=(const Sistema &) = delete;

    // Whether this run of the program is for a server.
    static bool Num_Servidor();

    QString Pasta() const { return pasta_.path(); }
    QString Ficheiro(const QString &nome) const { return pasta_.filePath(nome); }
    // The path of the database, or its address.
    QString Base() const;

    // A statement on the database, past the program: for setting up and for looking at what was written.
    Recordset Ler(const QString &sql);
    void Escrever(const QString &sql);
    // The rows of a query as text: cells joined by "|", Null as "<Null>". What a server counts beside the columns of
    // a row (its version) is left out of a "*".
    QStringList Linhas(const QString &sql);
    // Bytes as a statement has them, and a column of them as capital hexadecimal digits.
    QString Bytes(const QByteArray &bytes) const;
    QString Hex(const QString &coluna) const;

    // From now on that text is a failure to whoever asks for it, where it was not read before.
    void Perder_Texto(int id);

    // From now on the database refuses to "INSERT", "UPDATE", "DELETE" or "UPDATE OF column" a row of that table, or
    // only where that is so of its "NEW" or "OLD"; until it takes everything again.
    void Recusar(const QString &escrita, const QString &tabela, const QString &onde = {});
    void Deixar_De_Recusar();

    // Nobody has the file of the database open any more, until the next statement.
    void Largar_O_Ficheiro();

    // Somebody else keeps all of the database to themselves, readers included, until they let go.
    void Trancar();
    void Destrancar();

    // The text with that number in the active language, read past the program.
    QString Texto(int id);

    // A user with a scrambled password; all rights unless told otherwise. Returns the ID.
    int Novo_Utilizador(const QString &nome, const QString &senha,
                        const QString &direitos = QStringLiteral("11111"), bool pedir_senha = false);
    // Puts that user into the session, as a login would.
    void Entrar(const QString &nome);

    // A contact by named columns; the rest are empty strings. Returns the ID.
    int Novo_Contacto(const QMap<QString, Value> &colunas);
    // A group with that owner. Returns the ID.
    int Novo_Grupo(const QString &nome, int IdUtilizador = 0);
    int Ultimo_Id(const QString &tabela);

private:
    Connection &Ligacao();
    void Semear(const QString &idioma);
    void Tomar_Do_Servidor(Estado estado, const QString &idioma);

    QTemporaryDir pasta_;
    BaseDoPrograma *no_servidor_ = nullptr;
    bool sem_base_ = false;
    Connection ligacao_; // to a file
    QString recusa_;     // the table that refuses

public:
    Geral geral;
};
