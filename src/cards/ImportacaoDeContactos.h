// What a foreign file would bring: each of its contacts, and what it is to those that are there, to be looked
// at and to be decided before anything is written. Works in short slices, so that its form stays alive.
#pragma once

#include "cards/FonteDeContactos.h"
#include "cards/RegraDosDuplicados.h"

#include <QHash>
#include <unordered_map>

class DE;

enum class Escolha {
    Novo,   // a contact of its own
    Juntar, // what it says completes another one
    Saltar,
};

struct ContactoAImportar {
    ContactoDaFonte fonte;
    Veredicto veredicto = Veredicto::Novo;
    std::vector<std::size_t> quem; // who it is or may be: places, as Quem() takes them
    Escolha escolha = Escolha::Novo;
    std::size_t com = 0; // with which of them it is joined

    // What happens to it unless a person decides.
    static Escolha Por_Omissao(Veredicto veredicto);
};

class ImportacaoDeContactos
{
public:
    // Compares with the contacts that the user sees; the labels are written in that language.
    ImportacaoDeContactos(DE &de, QString IdUtilizador, QString idioma);

    // The bytes; empty ones, and a file without contacts, are an import without contacts.
    void Abrir_Cartoes(const QByteArray &bytes, const QByteArray &codificacao, GruposDaImportacao grupos);
    void Abrir_Tabela(TabelaEscolhida tabela, GruposDaImportacao grupos);

    // Goes on for some milliseconds. False once everything is read and compared. Raises Failure where the
    // database can't be read.
    bool Avancar();
    int Percentagem() const;

    std::vector<ContactoAImportar> &Contactos() { return contactos_; }
    const std::vector<ContactoAImportar> &Contactos() const { return contactos_; }
    // In the order of the lines, once everything is read.
    const std::vector<FaltaDaFonte> &Faltas() const { return faltas_; }

    // Who is at a place: one of the book, with an ID, or another contact of the file.
    struct Alguem {
        QString ID;               // empty: of the file
        std::size_t contacto = 0; // of the file, among Contactos()
    };
    const QString &Idioma() const { return idioma_; }
    Alguem Quem(std::size_t lugar) const;
    // As they are without this import.
    ColunasDoContacto Colunas_De(std::size_t lugar) const;

    // What its choice makes of it; with the other where it completes one.
    Decisao Como_Fica(const ContactoAImportar &contacto) const;

private:
    void Preparar();
    void Ler_Da_Agenda();
    void Julgar(std::size_t qual);
    bool Acabar();

    DE &de_;
    QString IdUtilizador_;
    QString idioma_;
    std::unique_ptr<FonteDeContactos> fonte_;
    std::size_t lidos_ = 0;
    std::vector<ContactoAImportar> contactos_;
    std::vector<FaltaDaFonte> faltas_;
    RegraDosDuplicados regra_;
    QHash<QString, QString> uids_;         // of the kept cards, by the ID of their contact
    std::vector<qint64> da_agenda_;        // the IDs of those at the first places
    std::vector<std::size_t> do_ficheiro_; // those at the places behind
    // Those at places that the rule has completed, as they were.
    std::unordered_map<std::size_t, ColunasDoContacto> por_completar_;
    bool fonte_preparada_ = false;
    int parte_da_fonte_ = 0; // percent of the work; a table has nothing to be prepared
    bool agenda_lida_ = false;
    bool uids_lidos_ = false;
};
