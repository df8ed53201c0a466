#include "cards/ContactoDoCartao.h"

#include "cards/BlocoDeObs.h"
#include "cards/FotografiaDoCartao.h"
#include "cards/NomeDobrado.h"
#include "cards/NumeroDoCartao.h"
#include "cards/RotulosDoCartao.h"
#include "contacts/DataAniversario.h"
#include "vcard/Card.h"
#include "vcard/CardContent.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace
{
// Whether the name lacks one of its parts. Folding is not needed for what stands there letter by letter.
bool Falta_No_Nome(const QString &nome, const CardName &partes)
{
    std::optional<QString> dobrado;
    const auto falta = [&](const QString &parte) {
        if (nome.contains(parte)) return false;
        if (!dobrado) dobrado = Nome_Dobrado(nome);
        return !dobrado->contains(Nome_Dobrado(parte));
    };
    return falta(partes.prefix) || falta(partes.given) || falta(partes.middle) || falta(partes.family) ||
           falta(partes.suffix);
}

// One card on its way.
class Leitura
{
public:
    Leitura(const Card &cartao, const CardContent &conteudo, QString idioma)
        : cartao_(cartao), conteudo_(conteudo), idioma_(std::move(idioma))
    {
    }

    ContactoLido Ler(const GruposDaImportacao &grupos, const QStringList &grupos_do_ficheiro)
    {
        Nome();
        Telefones();
        Emails();
        Websites();
        Moradas();
        Aniversarios();
        Organizacao();
        Outras();
        Categorias(grupos, grupos_do_ficheiro);
        Fotografias();
        Obs();
        return std::move(lido_);
    }

private:
    // A line of Obs: the person's own word for it, else the label; then the places.
    void Linha(const QString &rotulo, const QString &valor, const QStringList &tipos = {})
    {
        const QString numa_linha = valor.simplified();
        if (numa_linha.isEmpty()) return;
        QString inteiro = rotulo.simplified();
        if (tipos.contains(u"home"_s))
            inteiro += u" (%1)"_s.arg(rotulos_do_cartao::Em(Rotulo::Casa, idioma_));
        if (tipos.contains(u"work"_s))
            inteiro += u" (%1)"_s.arg(rotulos_do_cartao::Em(Rotulo::Trabalho, idioma_));
        lido_.linhas << inteiro + u": "_s + numa_linha;
    }

    void Linha(Rotulo rotulo, const QString &valor, const QStringList &tipos = {},
               const QString &proprio = {})
    {
        if (valor.isEmpty()) return;
        Linha(proprio.isEmpty() ? rotulos_do_cartao::Em(rotulo, idioma_) : proprio, valor, tipos);
    }

    // Takes the first of the columns that is free.
    bool Por(std::span<const Coluna> colunas, const QString &valor, std::size_t origem)
    {
        for (const Coluna coluna : colunas) {
            if (!lido_.colunas[coluna].isEmpty()) continue;
            lido_.colunas[coluna] = valor;
            lido_.origem.Por(coluna, origem);
            return true;
        }
        return false;
    }

    void Nome()
    {
        const QString nome = shownName(conteudo_).simplified();
        lido_.colunas[Coluna::Nome] = Cortado(nome, ColunasDoContacto::maior_nome);
        if (lido_.colunas[Coluna::Nome] != nome) Linha(Rotulo::NomeCompleto, nome);
        if (const auto formatados = cartao_.all("FN"); formatados.size() > 1)
            for (const CardProperty *outro : formatados)
                if (outro->text().simplified() != nome) Linha(Rotulo::NomeCompleto, outro->text());
        if (conteudo_.name && Falta_No_Nome(nome, *conteudo_.name))
            Linha(Rotulo::NomeCompleto, spokenName(*conteudo_.name));
        Linha(Rotulo::Alcunha, conteudo_.nicknames.join(u", "_s));
    }

    void Telefones()
    {
        for (const std::size_t i : byPreference(conteudo_.phones)) {
            const CardEntry &entrada = conteudo_.phones[i];
            const QString numero = phoneNumber(entrada.value).simplified();
            if (numero.isEmpty()) continue;
            const EspecieDeNumero especie = Especie_Do_Numero(entrada, numero);
            const bool cabe = numero.size() <= ColunasDoContacto::maior_numero;
            if (!cabe || !Por(Colunas_Da_Especie(especie), numero, i))
                Linha(Rotulo_Da_Especie(especie), numero, entrada.types, entrada.label);
        }
    }

    void Emails()
    {
        for (const std::size_t i : byPreference(conteudo_.emails)) {
            const CardEntry &entrada = conteudo_.emails[i];
            const bool cabe =
                entrada.value.size() <= ColunasDoContacto::maior_email && !entrada.types.contains(u"x400"_s);
            if (entrada.value.isEmpty()) continue;
            if (!cabe || !Por(ColunasDoContacto::emails, entrada.value, i))
                Linha(Rotulo::Email, entrada.value, entrada.types, entrada.label);
        }
    }

    void Websites()
    {
        static constexpr std::array uma{Coluna::Website};
        for (const std::size_t i : byPreference(conteudo_.websites)) {
            const CardEntry &entrada = conteudo_.websites[i];
            if (!entrada.value.isEmpty() && !Por(uma, entrada.value, i))
                Linha(Rotulo::Website, entrada.value, entrada.types, entrada.label);
        }
    }

    // Its lines with that between them.
    static QString Texto_Da_Morada(const CardAddress &morada, QLatin1StringView entre)
    {
        QString texto;
        const auto por = [&](const QString &linha) {
            const QString aparada = linha.trimmed();
            if (aparada.isEmpty()) return;
            if (!texto.isEmpty()) texto += entre;
            texto += Com_CR_LF(aparada);
        };
        for (const QString *linha : {&morada.street, &morada.extended, &morada.box})
            por(*linha);
        por(morada.code.trimmed() + u' ' + morada.city.trimmed());
        por(morada.region);
        por(morada.country);
        return texto;
    }

    void Moradas()
    {
        std::vector<std::size_t> ordem = byPreference(conteudo_.addresses);
        if (ordem.size() > 1)
            std::stable_sort(ordem.begin(), ordem.end(), [this](std::size_t a, std::size_t b) {
                const auto peso = [this](std::size_t i) {
                    const CardAddress &morada = conteudo_.addresses[i];
                    return std::pair(morada.preference, !morada.types.contains(u"home"_s));
                };
                return peso(a) < peso(b);
            });
        static constexpr std::array uma{Coluna::Morada};
        for (const std::size_t i : ordem) {
            const CardAddress &morada = conteudo_.addresses[i];
            const QString texto = Texto_Da_Morada(morada, "\r\n"_L1);
            if (!texto.isEmpty() && !Por(uma, texto, i))
                Linha(Rotulo::Morada, Texto_Da_Morada(morada, ", "_L1), morada.types, morada.label);
        }
        QString &inteira = lido_.colunas[Coluna::Morada];
        for (const QString &etiqueta : conteudo_.addressLabels) {
            if (inteira.isEmpty())
                inteira = Com_CR_LF(etiqueta.trimmed());
            else if (!Nome_Dobrado(inteira).contains(Nome_Dobrado(etiqueta)))
                Linha(Rotulo::Morada, etiqueta);
        }
    }

    bool Por_Data(const CardBirthday &aniversario)
    {
        if (!aniversario.date || !lido_.colunas[Coluna::Dia].isEmpty()) return false;
        const CardDate &data = *aniversario.date;
        const QString dia = QString::number(data.day);
        const QString mes = QString::number(data.month);
        const QString ano = data.year == 0 ? QString() : QString::number(data.year);
        if (!Aniversario_Valido(dia, mes, ano)) return false;
        lido_.colunas[Coluna::Dia] = dia;
        lido_.colunas[Coluna::Mes] = mes;
        lido_.colunas[Coluna::Ano] = ano;
        return true;
    }

    void Aniversarios()
    {
        for (const CardBirthday &aniversario : conteudo_.birthdays)
            if (!Por_Data(aniversario)) Linha(Rotulo::Aniversario, aniversario.text);
    }

    void Organizacao()
    {
        for (const CardProperty *organizacao : cartao_.all("ORG")) {
            QStringList partes = organizacao->parts();
            partes.removeAll(QString());
            Linha(Rotulo::Empresa, partes.join(u", "_s), {}, cartao_.label(*organizacao));
        }
    }

    // Programs keep their own books in a card: no person has said that.
    bool E_De_Um_Programa(const QByteArray &nome) const
    {
        static const QList<QByteArray> nomes{"REV",    "PRODID", "KEY",          "LOGO",
                                             "SOUND",  "AGENT",  "SORT-STRING",  "MAILER",
                                             "SOURCE", "CLASS",  "CLIENTPIDMAP", "PROFILE"};
        if (nomes.contains(nome) || nome.startsWith("X-AB") || nome.startsWith("X-IMAGE")) return true;
        const auto todas = cartao_.all(nome);
        return std::any_of(todas.begin(), todas.end(),
                           [](const CardProperty *propriedade) { return propriedade->head().isBase64(); });
    }

    void Outras()
    {
        static const std::map<QByteArray, Rotulo> conhecidas{
            {"TITLE", Rotulo::Cargo},         {"ROLE", Rotulo::Funcao},
            {"IMPP", Rotulo::Mensagens},      {"ANNIVERSARY", Rotulo::DataEspecial},
            {"RELATED", Rotulo::Relacionado}, {"X-ANNIVERSARY", Rotulo::DataEspecial},
        };
        for (const OtherProperty &outra : conteudo_.others) {
            if (E_De_Um_Programa(outra.name)) continue;
            const auto conhecida = conhecidas.find(outra.name);
            const CardEntry &entrada = outra.entry;
            if (conhecida != conhecidas.end())
                Linha(conhecida->second, entrada.value, entrada.types, entrada.label);
            else
                Linha(entrada.label.isEmpty() ? QString::fromUtf8(outra.name) : entrada.label, entrada.value,
                      entrada.types);
        }
    }

    void Categorias(const GruposDaImportacao &grupos, const QStringList &grupos_do_ficheiro)
    {
        QStringList categorias = conteudo_.categories + grupos_do_ficheiro;
        if (categorias.size() > 1) categorias.removeDuplicates();
        lido_.Grupo = Grupo_Das_Categorias(categorias, grupos);
        if (categorias.isEmpty()) return;
        categorias.removeIf([this](const QString &categoria) {
            return Nome_Dobrado(categoria) == Nome_Dobrado(lido_.Grupo);
        });
        Linha(Rotulo::Categorias, categorias.join(u", "_s));
    }

    // An address is only said, never followed: it would tell somebody, or give away a file of the user.
    void Fotografias()
    {
        for (const CardPhoto &fotografia : conteudo_.photos) {
            if (fotografia.bytes.isEmpty()) {
                Linha(Rotulo::Fotografia, fotografia.uri);
                continue;
            }
            const bool ha_uma = !lido_.Fotografia.isEmpty();
            const QString nome = ha_uma ? QString() : fotografia_do_cartao::Nome(fotografia.bytes);
            if (nome.isEmpty()) {
                lido_.problemas << rotulos_do_cartao::Em(Rotulo::Fotografia, idioma_);
                continue;
            }
            lido_.colunas[Coluna::Fotografia] = nome;
            lido_.Fotografia = fotografia.bytes;
        }
    }

    void Obs()
    {
        QStringList notas;
        for (const CardEntry &nota : conteudo_.notes)
            if (!nota.value.trimmed().isEmpty()) notas << nota.value;
        if (notas.isEmpty() && lido_.linhas.isEmpty()) return;
        BlocoDeObs bloco = BlocoDeObs::Separar(notas.join(u"\r\n"_s));
        bloco.Juntar(lido_.linhas);
        lido_.colunas[Coluna::Obs] = bloco.Texto(idioma_);
    }

    const Card &cartao_;
    const CardContent &conteudo_;
    QString idioma_;
    ContactoLido lido_;
};
} // namespace

ContactoDoCartao::ContactoDoCartao(QString idioma, GruposDaImportacao grupos)
    : idioma_(std::move(idioma)), grupos_(std::move(grupos))
{
}

ContactoLido ContactoDoCartao::Ler(const Card &cartao, const QStringList &grupos_do_ficheiro) const
{
    return Ler(cartao, contentOf(cartao), grupos_do_ficheiro);
}

ContactoLido ContactoDoCartao::Ler(const Card &cartao, const CardContent &conteudo,
                                   const QStringList &grupos_do_ficheiro) const
{
    return Leitura(cartao, conteudo, idioma_).Ler(grupos_, grupos_do_ficheiro);
}
