// The process-wide values and the shared services that every form uses. One object, made where the process
// begins and handed on by reference.
#pragma once

#include "data/DE.h"
#include "data/Rascunhos.h"
#include "data/ReadWriteINI.h"
#include "data/Sessao.h"
#include "data/Temporizadores.h"
#include "data/TextosDoServidor.h"

#include <QHash>
#include <QString>

class Geral
{
public:
    // The folder holds the program's own files: config.ini, the database, pictures, sounds.
    explicit Geral(const QString &pasta);
    Geral(const Geral &) = delete;
    Geral &operator=(const Geral &) = delete;

    const QString Pasta;
    QString PastaDoManual; // the installed pages, one folder a language; empty where there are none

    // Copies of the row of TblConfig.
    QString IdiomaActual;
    QString VersaoBD;
    QString RemetenteBD;
    QString DestinatarioBD;

    Sessao SessaoActual;

    // Copies of config.ini. Flags keep the words of the file: "sim"/"nao", "0"/"1", "True"/"False".
    QString CaminhoBD;
    QString AlimentacaoEnvelopes;
    qint16 DiasAniversarios = 0;
    QString AvisoAniversarios;
    QString UltimaPastaFotos;
    QString AutorunArranque;
    QString MinimizarArranque;
    bool MinimizarDestaVez = false; // asked for by the command line, and kept nowhere
    QString AvisoNovaVersao;
    QString MemoFontName;
    QString MemoFontSize;
    QString MemoFontBold;
    QString MemoFontItalic;
    QString MemoCorFundo;
    qint16 EmailNotifyActivo = 0;
    qint16 EmailNotifyMinutos = 0;
    qint16 MessengerActivo = 0;
    QString SomEmail;
    QString SomTarefa;

    // The contact list and its card.
    QString GrupoActual;    // ItemData of the group filter in digits; "0" is all groups
    qint16 IDContacto = 0;  // the contact on the card
    int IndiceContacto = 0; // its row in ListaNomes

    // "Add" or "Edit": the mode of the editor of contacts, of tasks, of mail accounts.
    QString ModoContacto;
    QString ModoTarefa;
    QString ModoEmail;

    // Mail accounts.
    qint16 IDContaEmail = 0; // the account in hand
    qint16 ErroMail = 0;     // 1: the last check failed, or there is no account
    QString SaidaEmail;      // what Codificar_Email put out last

    DE de;
    ReadWriteINI ini;
    Temporizadores temporizadores;
    Rascunhos rascunhos;

    // The text with that number in the active language, read from the file at each call; a server is asked
    // for all of them once. Empty while no language is active; Failure where the row is missing or its cell is
    // Null. One that an older database lacks comes from the program itself.
    QString Ler_Idioma(qint16 id);

    // All of them at once, by their number, for who needs many: no index leads to a text, and each call of
    // the other walks over the table. A text that is not among them may still have something to say there.
    QHash<qint64, QString> Ler_Todo_O_Idioma();

    // Whether the start ends with the window hidden in the tray.
    bool Comeca_Minimizado() const
    {
        return MinimizarDestaVez || MinimizarArranque == QLatin1StringView("sim");
    }

    // The name of a per-user section of config.ini: the user's ID stands behind it without a separator.
    QString Seccao_Do_Utilizador(const QString &seccao) const { return seccao + SessaoActual.IdUtilizador; }

    // A file of the program's folder.
    QString Ficheiro(const QString &nome) const;

private:
    TextosDoServidor textos_;
};
