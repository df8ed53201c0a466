// A whole installation for one test: a folder of its own with the shipped files, a real database in it, the
// process-wide values, and stand-ins for the desktop.
#pragma once

#include "data/Geral.h"
#include "store/Connection.h"
#include "testlib/Falsos.h"

#include <QTemporaryDir>

class Sistema
{
public:
    enum class Estado {
        Vazio,    // as it is shipped: no language, no path in config.ini, empty tables
        Semeado,  // a first run in Portuguese has been: groups, samples, path in config.ini
        Sem_Base, // the path is set, the file is gone
    };

    explicit Sistema(Estado estado = Estado::Semeado, const QString &idioma = QStringLiteral("PortuguesPT"));
    ~Sistema();

    QString Pasta() const { return pasta_.path(); }
    QString Ficheiro(const QString &nome) const { return pasta_.filePath(nome); }
    QString Base() const { return Ficheiro(QStringLiteral("morvex.mdb")); }

    // A statement on the database, past the program: for setting up and for looking at what was written.
    Recordset Ler(const QString &sql);
    void Escrever(const QString &sql);
    // The rows of a query as text: cells joined by "|", Null as "<Null>".
    QStringList Linhas(const QString &sql);

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
    QTemporaryDir pasta_;
    Connection ligacao_;

public:
    RelogioFalso relogio{QDateTime({2027, 2, 1}, {9, 0})};
    CaixasFalsas caixas;
    DialogosFalsos dialogos;
    ShellFalsa shell;
    SomFalso som;
    RegistoFalso registo;
    CorreioFalso correio;
    MensageiroFalso mensageiro;
    ProcessoFalso processo;
    TabuleiroFalso tabuleiro;
    SegredosFalsos segredos;
    Platform plataforma{relogio, caixas,  dialogos,   shell,    som,
                        registo, correio, mensageiro, processo, tabuleiro, segredos};
    Geral geral;
};
