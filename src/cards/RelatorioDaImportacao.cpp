#include "cards/RelatorioDaImportacao.h"

#include "cards/RetratoDoContacto.h"
#include "data/Geral.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_faltas = 298;
constexpr auto entre_partes = u"    ";
} // namespace

QString RelatorioDaImportacao::Parte(qint16 texto, qsizetype numero) const
{
    return geral_.Ler_Idioma(texto) + u' ' + QString::number(numero);
}

QString RelatorioDaImportacao::Lidos(const ImportacaoDeContactos &importacao) const
{
    const std::vector<ContactoAImportar> &contactos = importacao.Contactos();
    const auto de = [&](qint16 texto, Veredicto veredicto) {
        return Parte(texto, std::count_if(contactos.begin(), contactos.end(), [&](const auto &contacto) {
                         return contacto.veredicto == veredicto;
                     }));
    };
    return QStringList{Parte(49, static_cast<qsizetype>(contactos.size())),
                       de(294, Veredicto::Novo),
                       de(295, Veredicto::Completa),
                       de(296, Veredicto::Igual),
                       de(297, Veredicto::Talvez),
                       Parte(texto_faltas, static_cast<qsizetype>(importacao.Faltas().size()))}
        .join(entre_partes);
}

QStringList RelatorioDaImportacao::Partes(const EscritaDaImportacao::Contagem &feita) const
{
    return {Parte(315, feita.adicionados), Parte(316, feita.completados), Parte(317, feita.saltados)};
}

QString RelatorioDaImportacao::Feitos(const EscritaDaImportacao::Contagem &feita) const
{
    return Partes(feita).join(entre_partes);
}

void RelatorioDaImportacao::Escrever(RetratoDoContacto &campo, const ImportacaoDeContactos &importacao,
                                     const ContactoAImportar &contacto, const QString &grupo) const
{
    const Decisao fica = importacao.Como_Fica(contacto);
    const QString &fotografia = contacto.fonte.lido.colunas[Coluna::Fotografia];
    campo.Limpar();
    if (!fotografia.isEmpty()) campo.Fotografia(Fotografia_Do_Cartao(contacto.fonte.cartao, fotografia));
    campo.Contacto(fica.completado, fica.preenchidas);
    if (contacto.escolha == Escolha::Novo) {
        const QString &seu = contacto.fonte.lido.Grupo;
        campo.Texto(geral_.Ler_Idioma(42) + u' ' + (seu.isEmpty() ? grupo : seu));
    }
    if (contacto.escolha != Escolha::Juntar) Escrever_Outros(campo, importacao, contacto);
    campo.Acabar();
}

void RelatorioDaImportacao::Escrever_Outros(RetratoDoContacto &campo, const ImportacaoDeContactos &importacao,
                                            const ContactoAImportar &contacto) const
{
    for (std::size_t i = 0; i < std::min(contacto.quem.size(), mais_outros); ++i) {
        const bool da_agenda = !importacao.Quem(contacto.quem[i]).ID.isEmpty();
        campo.Titulo(geral_.Ler_Idioma(da_agenda ? 313 : 314));
        campo.Contacto(importacao.Colunas_De(contacto.quem[i]));
    }
}

QString RelatorioDaImportacao::Falta(const FaltaDaFonte &falta) const
{
    constexpr qint16 primeira = 319; // in the order of FaltaDaFonte::Que
    const auto qual = static_cast<qint16>(primeira + static_cast<qint16>(falta.que));
    return Parte(318, falta.linha) + u" \u2013 "_s + (geral_.Ler_Idioma(qual) + u' ' + falta.valor).trimmed();
}

void RelatorioDaImportacao::Escrever(RetratoDoContacto &campo, const ImportacaoDeContactos &importacao,
                                     const EscritaDaImportacao &escrita) const
{
    constexpr std::size_t mais_faltas = 1000; // that somebody could read
    const std::vector<FaltaDaFonte> &faltas = importacao.Faltas();
    campo.Limpar();
    campo.Texto(geral_.Ler_Idioma(231));
    for (const QString &linha : Partes(escrita.Feita()))
        campo.Texto(linha);
    for (const QString &grupo : escrita.GruposCriados())
        campo.Linha(geral_.Ler_Idioma(236), grupo);
    campo.Texto(Parte(texto_faltas, static_cast<qsizetype>(faltas.size())));
    for (std::size_t i = 0; i < std::min(faltas.size(), mais_faltas); ++i)
        campo.Texto(Falta(faltas[i]));
    campo.Acabar();
}
