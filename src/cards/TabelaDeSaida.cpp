#include "cards/TabelaDeSaida.h"

#include "cards/CartaoDoContacto.h"
#include "platform/Translations.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
struct ColunaDaFolha {
    Coluna coluna; // IDGrupo stands for the group's name
    Translations nome;
};

// clang-format off
constexpr std::array folha{
    ColunaDaFolha{Coluna::Nome, {u"Nome", u"Nome", u"Name", u"Nombre completo", u"Nome", u"Nom complet", u"Name"}},
    ColunaDaFolha{Coluna::Telefone1, {u"Telefone 1", u"Telefone 1", u"Telephone 1", u"Teléfono 1", u"Telefono 1",
                                      u"Téléphone 1", u"Telefon 1"}},
    ColunaDaFolha{Coluna::Telefone2, {u"Telefone 2", u"Telefone 2", u"Telephone 2", u"Teléfono 2", u"Telefono 2",
                                      u"Téléphone 2", u"Telefon 2"}},
    ColunaDaFolha{Coluna::Fax, {u"Fax", u"Fax", u"Fax", u"Fax", u"Fax", u"Fax", u"Fax"}},
    ColunaDaFolha{Coluna::Telemovel1, {u"Telemóvel 1", u"Celular 1", u"Mobile 1", u"Móvil 1", u"Cellulare 1",
                                       u"Mobile 1", u"Mobil 1"}},
    ColunaDaFolha{Coluna::Telemovel2, {u"Telemóvel 2", u"Celular 2", u"Mobile 2", u"Móvil 2", u"Cellulare 2",
                                       u"Mobile 2", u"Mobil 2"}},
    ColunaDaFolha{Coluna::Telemovel3, {u"Telemóvel 3", u"Celular 3", u"Mobile 3", u"Móvil 3", u"Cellulare 3",
                                       u"Mobile 3", u"Mobil 3"}},
    ColunaDaFolha{Coluna::Dia, {u"Dia de nascimento", u"Dia de nascimento", u"Birth day", u"Día de nacimiento",
                                u"Giorno di nascita", u"Jour de naissance", u"Geburtstag"}},
    ColunaDaFolha{Coluna::Mes, {u"Mês de nascimento", u"Mês de nascimento", u"Birth month", u"Mes de nacimiento",
                                u"Mese di nascita", u"Mois de naissance", u"Geburtsmonat"}},
    ColunaDaFolha{Coluna::Ano, {u"Ano de nascimento", u"Ano de nascimento", u"Birth year", u"Año de nacimiento",
                                u"Anno di nascita", u"Année de naissance", u"Geburtsjahr"}},
    ColunaDaFolha{Coluna::Email1, {u"E-mail 1", u"E-mail 1", u"E-mail 1", u"E-mail 1", u"E-mail 1", u"E-mail 1",
                                   u"E-Mail 1"}},
    ColunaDaFolha{Coluna::Email2, {u"E-mail 2", u"E-mail 2", u"E-mail 2", u"E-mail 2", u"E-mail 2", u"E-mail 2",
                                   u"E-Mail 2"}},
    ColunaDaFolha{Coluna::Website, {u"Website", u"Site", u"Website", u"Sitio web", u"Sito web", u"Site web",
                                    u"Website"}},
    ColunaDaFolha{Coluna::Morada, {u"Morada", u"Endereço", u"Address", u"Dirección", u"Indirizzo", u"Adresse",
                                   u"Adresse"}},
    ColunaDaFolha{Coluna::Obs, {u"Observações", u"Observações", u"Notes", u"Notas", u"Note", u"Notes",
                                u"Notizen"}},
    ColunaDaFolha{Coluna::IDGrupo, {u"Grupo", u"Grupo", u"Group", u"Grupo", u"Gruppo", u"Groupe", u"Gruppe"}},
};

struct NumeroComRotulo {
    Coluna coluna;
    const char16_t *rotulo;
};
constexpr std::array numeros_com_rotulo{
    NumeroComRotulo{Coluna::Telefone1, u"Home"},    NumeroComRotulo{Coluna::Telefone2, u"Work"},
    NumeroComRotulo{Coluna::Fax, u"Home Fax"},      NumeroComRotulo{Coluna::Telemovel1, u"Mobile"},
    NumeroComRotulo{Coluna::Telemovel2, u"Mobile"}, NumeroComRotulo{Coluna::Telemovel3, u"Mobile"}};
// clang-format on

// Spreadsheets break a line within a cell at LF alone.
QString Celula(const QString &valor) { return QString(valor).replace("\r\n"_L1, "\n"_L1); }

QStringList Nomes_Para_Outros()
{
    QStringList nomes{u"First Name"_s, u"Last Name"_s};
    for (std::size_t i = 1; i <= numeros_com_rotulo.size(); ++i)
        nomes << u"Phone %1 - Label"_s.arg(i) << u"Phone %1 - Value"_s.arg(i);
    nomes << u"E-mail 1 - Value"_s << u"E-mail 2 - Value"_s << u"Website 1 - Value"_s
          << u"Address 1 - Formatted"_s << u"Birthday"_s << u"Notes"_s << u"Labels"_s;
    return nomes;
}

// As in a card: the last word is the family's name, a single one the given name.
QStringList Partes_Do_Nome(const QString &inteiro)
{
    const QString nome = inteiro.simplified();
    if (!nome.contains(u' ')) return {nome, QString()};
    return {nome.section(u' ', 0, -2), nome.section(u' ', -1)};
}

QString Aniversario(const ColunasDoContacto &colunas)
{
    const QString &dia = colunas[Coluna::Dia];
    const QString &mes = colunas[Coluna::Mes];
    if (dia.isEmpty() || mes.isEmpty()) return {};
    const QString &ano = colunas[Coluna::Ano];
    return (ano.isEmpty() ? u"-"_s : ano.rightJustified(4, u'0')) + u'-' + mes.rightJustified(2, u'0') +
           u'-' + dia.rightJustified(2, u'0');
}

QStringList Para_Folha(const ContactoParaCartao &contacto)
{
    QStringList celulas;
    for (const ColunaDaFolha &coluna : folha)
        celulas << Celula(coluna.coluna == Coluna::IDGrupo ? contacto.Grupo
                                                           : contacto.colunas[coluna.coluna]);
    return celulas;
}

QStringList Para_Outros(const ContactoParaCartao &contacto)
{
    const ColunasDoContacto &colunas = contacto.colunas;
    QStringList celulas = Partes_Do_Nome(colunas[Coluna::Nome]);
    for (const NumeroComRotulo &numero : numeros_com_rotulo) {
        const QString &valor = colunas[numero.coluna];
        celulas << (valor.isEmpty() ? QString() : QString::fromUtf16(numero.rotulo)) << valor;
    }
    celulas << colunas[Coluna::Email1] << colunas[Coluna::Email2] << colunas[Coluna::Website]
            << Celula(colunas[Coluna::Morada]) << Aniversario(colunas) << Celula(colunas[Coluna::Obs])
            << contacto.Grupo;
    return celulas;
}
} // namespace

TabelaDeSaida::TabelaDeSaida(CsvDialect dialecto, QString idioma)
    : dialecto_(dialecto), idioma_(std::move(idioma))
{
}

QByteArray TabelaDeSaida::Inicio() const
{
    QStringList nomes;
    if (dialecto_ == CsvDialect::Plain)
        nomes = Nomes_Para_Outros();
    else
        for (const ColunaDaFolha &coluna : folha)
            nomes << translated(coluna.nome, idioma_);
    return csvBeginning(dialecto_) + writtenCsvRow(nomes, dialecto_);
}

QByteArray TabelaDeSaida::Linha(const ContactoParaCartao &contacto) const
{
    return writtenCsvRow(dialecto_ == CsvDialect::Plain ? Para_Outros(contacto) : Para_Folha(contacto),
                         dialecto_);
}
