#include "cards/RotulosDoCartao.h"

#include "platform/Translations.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations marca{
    u"--- Outros dados do contacto ---",       u"--- Outros dados do contato ---",
    u"--- Further details of the contact ---", u"--- Otros datos del contacto ---",
    u"--- Altri dati del contatto ---",        u"--- Autres données du contact ---",
    u"--- Weitere Angaben zum Kontakt ---",
};
constexpr std::array<Translations, 20> rotulos{{
    {u"Nome completo", u"Nome completo", u"Full name", u"Nombre completo", u"Nome completo", u"Nom complet",
     u"Vollständiger Name"},
    {u"Telefone", u"Telefone", u"Phone", u"Teléfono", u"Telefono", u"Téléphone", u"Telefon"},
    {u"Telemóvel", u"Celular", u"Mobile phone", u"Teléfono móvil", u"Cellulare", u"Téléphone mobile",
     u"Mobiltelefon"},
    {u"Fax", u"Fax", u"Fax", u"Fax", u"Fax", u"Fax", u"Fax"},
    {u"Pager", u"Pager", u"Pager", u"Buscapersonas", u"Cercapersone", u"Récepteur d’appel",
     u"Funkrufempfänger"},
    {u"E-mail", u"E-mail", u"E-mail", u"Correo electrónico", u"E-mail", u"Adresse e-mail", u"E-Mail"},
    {u"Página web", u"Site", u"Website", u"Página web", u"Sito web", u"Site web", u"Webseite"},
    {u"Morada", u"Endereço", u"Address", u"Dirección", u"Indirizzo", u"Adresse", u"Anschrift"},
    {u"Aniversário", u"Aniversário", u"Birthday", u"Cumpleaños", u"Compleanno", u"Anniversaire",
     u"Geburtstag"},
    {u"Categorias", u"Categorias", u"Categories", u"Categorías", u"Categorie", u"Catégories", u"Kategorien"},
    {u"Fotografia", u"Fotografia", u"Photograph", u"Fotografía", u"Fotografia", u"Photographie", u"Foto"},
    {u"Empresa", u"Empresa", u"Organisation", u"Empresa", u"Azienda", u"Société", u"Firma"},
    {u"Cargo", u"Cargo", u"Job title", u"Cargo", u"Qualifica", u"Poste", u"Position"},
    {u"Função", u"Função", u"Role", u"Función", u"Ruolo", u"Fonction", u"Funktion"},
    {u"Alcunha", u"Apelido", u"Nickname", u"Apodo", u"Soprannome", u"Surnom", u"Spitzname"},
    {u"Mensagens instantâneas", u"Mensagens instantâneas", u"Instant messaging", u"Mensajería instantánea",
     u"Messaggistica istantanea", u"Messagerie instantanée", u"Sofortnachrichten"},
    {u"Data especial", u"Data especial", u"Anniversary", u"Aniversario", u"Ricorrenza", u"Date anniversaire",
     u"Jahrestag"},
    {u"Pessoa relacionada", u"Pessoa relacionada", u"Related person", u"Persona relacionada",
     u"Persona collegata", u"Personne liée", u"Bezugsperson"},
    {u"casa", u"casa", u"home", u"casa", u"casa", u"domicile", u"privat"},
    {u"trabalho", u"trabalho", u"work", u"trabajo", u"lavoro", u"travail", u"geschäftlich"},
}};
} // namespace

QString rotulos_do_cartao::Em(Rotulo rotulo, const QString &idioma)
{
    return translated(rotulos[static_cast<std::size_t>(rotulo)], idioma);
}

QString rotulos_do_cartao::Marca(const QString &idioma) { return translated(marca, idioma); }

bool rotulos_do_cartao::E_Marca(const QString &linha)
{
    const QString simples = linha.trimmed();
    return std::any_of(marca.begin(), marca.end(),
                       [&](const char16_t *palavras) { return simples == QStringView(palavras); });
}

const QStringList &rotulos_do_cartao::Idiomas()
{
    static const QStringList idiomas{u"PortuguesPT"_s, u"PortuguesBR"_s, u"InglesUK"_s, u"EspanholES"_s,
                                     u"ItalianoIT"_s,  u"FrancesFR"_s,   u"AlemaoDE"_s};
    return idiomas;
}
