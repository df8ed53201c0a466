#include "cards/CartaoDoContacto.h"

#include "cards/BlocoDeObs.h"
#include "cards/ContactoDoCartao.h"
#include "cards/FotografiaDoCartao.h"
#include "cards/NomeDobrado.h"
#include "cards/RotulosDoCartao.h"
#include "vcard/CardContent.h"
#include "vcard/CardPatch.h"
#include "vcard/CardReader.h"
#include "vcard/CardVersion3.h"
#include "vcard/CardWriter.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace
{
// The types that a number of a column has where no card says others.
QStringList Tipos_Da_Coluna(Coluna coluna)
{
    switch (coluna) {
    case Coluna::Telefone1:
        return {u"home"_s, u"voice"_s};
    case Coluna::Telefone2:
        return {u"work"_s, u"voice"_s};
    case Coluna::Fax:
        return {u"home"_s, u"fax"_s};
    case Coluna::Telemovel1:
    case Coluna::Telemovel2:
    case Coluna::Telemovel3:
        return {u"cell"_s};
    default:
        return {};
    }
}

CardEntry Entrada(const QString &valor, const QStringList &tipos = {})
{
    CardEntry entrada;
    entrada.value = valor;
    entrada.types = tipos;
    return entrada;
}

std::optional<CardDate> Data(const ColunasDoContacto &colunas)
{
    if (colunas[Coluna::Dia].isEmpty() || colunas[Coluna::Mes].isEmpty()) return {};
    return CardDate{colunas[Coluna::Dia].toInt(), colunas[Coluna::Mes].toInt(), colunas[Coluna::Ano].toInt()};
}

// The whole address is the street: to take it apart would be a guess.
CardAddress Morada(const QString &morada)
{
    CardAddress inteira;
    inteira.street = morada;
    return inteira;
}

CardContent Conteudo(const ContactoParaCartao &contacto)
{
    const ColunasDoContacto &colunas = contacto.colunas;
    CardContent conteudo;
    if (!contacto.UID.isEmpty()) conteudo.uid = contacto.UID;
    conteudo.formattedName = colunas[Coluna::Nome];
    for (const Coluna coluna : ColunasDoContacto::numeros)
        if (!colunas[coluna].isEmpty())
            conteudo.phones.push_back(Entrada(colunas[coluna], Tipos_Da_Coluna(coluna)));
    for (const Coluna coluna : ColunasDoContacto::emails)
        if (!colunas[coluna].isEmpty()) conteudo.emails.push_back(Entrada(colunas[coluna]));
    if (!colunas[Coluna::Website].isEmpty()) conteudo.websites.push_back(Entrada(colunas[Coluna::Website]));
    if (!colunas[Coluna::Morada].isEmpty()) {
        conteudo.addresses.push_back(Morada(colunas[Coluna::Morada]));
        conteudo.addressLabels.push_back(colunas[Coluna::Morada]);
    }
    if (const auto data = Data(colunas)) conteudo.birthdays.push_back({{}, data});
    if (!contacto.Grupo.isEmpty()) conteudo.categories << contacto.Grupo;
    if (!colunas[Coluna::Obs].isEmpty()) conteudo.notes.push_back(Entrada(colunas[Coluna::Obs]));
    const QByteArray fotografia = fotografia_do_cartao::Para_Cartao(contacto.Fotografia);
    if (!fotografia.isEmpty()) conteudo.photos.push_back({fotografia, {}});
    return conteudo;
}

// The changes of one kept card.
class Remendo
{
public:
    Remendo(const Card &cartao, const ContactoParaCartao &contacto, QString idioma, const QStringList &grupos)
        : cartao_(cartao),
          conteudo_(contentOf(cartao)),
          contacto_(contacto),
          idioma_(std::move(idioma)),
          antes_(ContactoDoCartao(idioma_, {grupos, {}, false}).Ler(cartao, conteudo_, {})),
          escritor_(cartao.version(), firstFreeGroup(cartao))
    {
    }

    QByteArray Fazer()
    {
        UID();
        Nome();
        Entradas("TEL", ColunasDoContacto::numeros, conteudo_.phones);
        Entradas("EMAIL", ColunasDoContacto::emails, conteudo_.emails);
        Website();
        Morada_Mudada();
        Aniversario();
        Categorias();
        Obs();
        Fotografia();
        return patchedCard(cartao_, fora_, escritor_.lines());
    }

private:
    bool Mudou(Coluna coluna) const { return contacto_.colunas[coluna] != antes_.colunas[coluna]; }
    const QString &Valor(Coluna coluna) const { return contacto_.colunas[coluna]; }

    void Tirar_Todas(const QByteArray &nome)
    {
        const auto todas = cartao_.all(nome);
        fora_.insert(fora_.end(), todas.begin(), todas.end());
    }

    // Where the column's value came from, it goes; its place in the content's list, if it had one.
    std::optional<std::size_t> Tirar_Origem(const QByteArray &nome, Coluna coluna)
    {
        const std::optional<std::size_t> origem = antes_.origem.De(coluna);
        if (origem) fora_.push_back(cartao_.all(nome)[*origem]);
        return origem;
    }

    void UID()
    {
        if (!contacto_.UID.isEmpty() && conteudo_.uid.value_or(QString()).isEmpty()) {
            Tirar_Todas("UID");
            escritor_.text("UID", contacto_.UID);
        }
    }

    void Nome()
    {
        if (!Mudou(Coluna::Nome)) return;
        Tirar_Todas("FN");
        Tirar_Todas("N");
        CardContent nome;
        nome.formattedName = Valor(Coluna::Nome);
        escritor_.content(nome);
    }

    void Entradas(const QByteArray &nome, std::span<const Coluna> colunas,
                  const std::vector<CardEntry> &entradas)
    {
        for (const Coluna coluna : colunas) {
            if (!Mudou(coluna)) continue;
            const auto origem = Tirar_Origem(nome, coluna);
            if (Valor(coluna).isEmpty()) continue;
            CardEntry entrada = origem ? entradas[*origem] : Entrada({}, Tipos_Da_Coluna(coluna));
            entrada.value = Valor(coluna);
            escritor_.entry(nome, entrada);
        }
    }

    void Website()
    {
        if (!Mudou(Coluna::Website)) return;
        const auto origem = Tirar_Origem("URL", Coluna::Website);
        if (Valor(Coluna::Website).isEmpty()) return;
        CardEntry entrada = origem ? conteudo_.websites[*origem] : CardEntry();
        entrada.value = Valor(Coluna::Website);
        escritor_.website(entrada);
    }

    // That of the address which goes: where no property holds it, the label that it was read from.
    bool E_Da_Morada(const CardProperty &etiqueta, const CardAddress &morada) const
    {
        if (antes_.origem.De(Coluna::Morada)) return etiqueta.types() == morada.types;
        return Nome_Dobrado(antes_.colunas[Coluna::Morada]).contains(Nome_Dobrado(etiqueta.text()));
    }

    void Morada_Mudada()
    {
        if (!Mudou(Coluna::Morada)) return;
        CardAddress morada = Morada(Valor(Coluna::Morada));
        if (const auto origem = Tirar_Origem("ADR", Coluna::Morada)) {
            const CardAddress &antiga = conteudo_.addresses[*origem];
            morada.types = antiga.types;
            morada.preference = antiga.preference;
            morada.label = antiga.label;
        }
        for (const CardProperty *etiqueta : cartao_.all("LABEL"))
            if (E_Da_Morada(*etiqueta, morada)) fora_.push_back(etiqueta);
        if (!Valor(Coluna::Morada).isEmpty()) escritor_.address(morada);
    }

    void Aniversario()
    {
        if (!Mudou(Coluna::Dia) && !Mudou(Coluna::Mes) && !Mudou(Coluna::Ano)) return;
        Tirar_Todas("BDAY");
        if (const auto data = Data(contacto_.colunas)) escritor_.birthday(*data);
    }

    void Categorias()
    {
        if (Nome_Dobrado(contacto_.Grupo) == Nome_Dobrado(antes_.Grupo)) return;
        const auto e = [](const QString &nome) {
            return [dobrado = Nome_Dobrado(nome)](const QString &outro) {
                return Nome_Dobrado(outro) == dobrado;
            };
        };
        QStringList categorias = conteudo_.categories;
        const auto ja_la = std::find_if(categorias.begin(), categorias.end(), e(contacto_.Grupo));
        if (antes_.Grupo.isEmpty() && ja_la != categorias.end()) return;
        categorias.removeIf(e(antes_.Grupo));
        categorias.removeIf(e(contacto_.Grupo));
        if (!contacto_.Grupo.isEmpty()) categorias.prepend(contacto_.Grupo);
        Tirar_Todas("CATEGORIES");
        if (!categorias.isEmpty()) escritor_.list("CATEGORIES", categorias);
    }

    // What a person has written, without the lines that the card's own properties give in any language.
    BlocoDeObs Proprio(const QString &obs) const
    {
        BlocoDeObs bloco = BlocoDeObs::Separar(obs);
        for (const QString &idioma : rotulos_do_cartao::Idiomas())
            for (const QString &linha : ContactoDoCartao(idioma).Ler(cartao_, conteudo_, {}).linhas)
                bloco.linhas.removeAll(linha);
        // A category is no line while it is a group of the book.
        for (const QString &linha : antes_.linhas)
            bloco.linhas.removeAll(linha);
        return bloco;
    }

    void Obs()
    {
        if (!Mudou(Coluna::Obs)) return;
        const BlocoDeObs proprio = Proprio(Valor(Coluna::Obs));
        const BlocoDeObs antigo = Proprio(antes_.colunas[Coluna::Obs]);
        if (proprio.nota == antigo.nota && proprio.linhas == antigo.linhas) return;
        Tirar_Todas("NOTE");
        const QString texto = proprio.Texto(idioma_);
        if (!texto.isEmpty()) escritor_.text("NOTE", texto);
    }

    void Fotografia()
    {
        if (!Mudou(Coluna::Fotografia)) return;
        const QByteArray fotografia = fotografia_do_cartao::Para_Cartao(contacto_.Fotografia);
        // A picture that is there and can't be read takes no other's place.
        if (fotografia.isEmpty() && !Valor(Coluna::Fotografia).isEmpty()) return;
        Tirar_Todas("PHOTO");
        if (!fotografia.isEmpty()) escritor_.photo({fotografia, {}});
    }

    const Card &cartao_;
    CardContent conteudo_;
    const ContactoParaCartao &contacto_;
    QString idioma_;
    ContactoLido antes_;
    CardWriter escritor_;
    std::vector<const CardProperty *> fora_;
};
} // namespace

CartaoDoContacto::CartaoDoContacto(QString idioma, CardVersion versao, QStringList grupos)
    : idioma_(std::move(idioma)), versao_(versao), grupos_(std::move(grupos))
{
}

QByteArray CartaoDoContacto::Novo(const ContactoParaCartao &contacto) const
{
    return writtenCard(Conteudo(contacto), versao_);
}

QByteArray CartaoDoContacto::Remendado(const ContactoParaCartao &contacto, const QByteArray &guardado) const
{
    CardFile ficheiro = CardReader().read(guardado);
    if (ficheiro.cards.empty()) return Novo(contacto);
    if (ficheiro.cards.front().version() == CardVersion::V21)
        ficheiro = CardReader().read(toVersion3(ficheiro.cards.front()));
    return Remendo(ficheiro.cards.front(), contacto, idioma_, grupos_).Fazer();
}
