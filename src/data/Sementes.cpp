#include "data/Sementes.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
QString Linhas_De_Texto(const QStringList &linhas) { return linhas.join("\r\n"_L1); }

// The same company in every language; only its notes are translated.
ContactoDeAmostra Empresa(const QStringList &obs)
{
    return {.Nome = u"KELMARIN"_s,
            .Telefone1 = u"210 000 140"_s,
            .Telemoveis = {u"910 000 141"_s, u"930 000 142"_s, u"960 000 143"_s},
            .Email1 = u"geral@kelmarin.example"_s,
            .Website = u"www.kelmarin.example"_s,
            .Morada = Linhas_De_Texto({u"Kelmarin, Lda."_s, u"Rua do Cais, 14"_s, u"1000-014 Lisboa"_s, u"Portugal"_s}),
            .Obs = Linhas_De_Texto(obs),
            .Fotografia = u"kelmarin_sample.jpg"_s};
}

ContactoDeAmostra Servico(const QStringList &obs)
{
    return {.Nome = u"Faroleiro"_s,
            .Email1 = u"tempo@faroleiro.example"_s,
            .Website = u"www.faroleiro.example"_s,
            .Obs = Linhas_De_Texto(obs),
            .Fotografia = u"faroleiro_sample.jpg"_s};
}

ContactoDeAmostra Portal(const QString &obs)
{
    return {.Nome = u"Praça Central"_s,
            .Email1 = u"ola@pracacentral.example"_s,
            .Website = u"www.pracacentral.example"_s,
            .Obs = obs,
            .Fotografia = u"praca_sample.jpg"_s};
}

// What both Portuguese sets share.
Sementes Portugues(const QString &idioma)
{
    return {.Idioma = idioma,
            .Remetente = u"Escreva aqui o seu endereço (remetente)"_s,
            .Destinatario = u"Exmo(s) Senhores(s)"_s,
            .Repeticoes = {u"Não"_s, u"Diariamente"_s, u"Semanalmente"_s, u"Mensalmente"_s, u"Anualmente"_s},
            .Grupos = {u"Amigos"_s, u"Colegas"_s, u"Familia"_s, u"Clientes"_s, u"Fornecedores"_s, u"Outros"_s},
            .MemoTitulo = u"Memo"_s,
            .MemoDescricao = u"Escreva aqui os seus memos !"_s,
            .Contactos = {}};
}
} // namespace

Sementes sementes::PT()
{
    Sementes s = Portugues(u"PortuguesPT"_s);
    s.Contactos = {Empresa({u"Contacto de exemplo: clique em EDITAR CONTACTO para o alterar."_s,
                            u"A ficha fecha-se à volta dos campos vazios."_s}),
                   Servico({u"O estado do mar e do tempo, todas as manhãs."_s,
                            u"Contacto de exemplo: pode eliminá-lo."_s}),
                   Portal(u"Tudo o que acontece na cidade, numa só página."_s)};
    return s;
}

Sementes sementes::BR()
{
    Sementes s = Portugues(u"PortuguesBR"_s);
    s.Contactos = {Empresa({u"Contato de exemplo: clique em Editar contato para alterá-lo."_s,
                            u"A ficha se fecha em volta dos campos vazios."_s}),
                   Portal(u"Tudo o que acontece na cidade, em uma só página."_s)};
    return s;
}

Sementes sementes::UK()
{
    return {.Idioma = u"InglesUK"_s,
            .Remetente = u"Write your address here (sender)"_s,
            .Destinatario = u"Your Excellency(s)"_s,
            .Repeticoes = {u"No"_s, u"Daily"_s, u"Weekly"_s, u"Monthly"_s, u"Annually"_s},
            .Grupos = {u"Friends"_s, u"Colleagues"_s, u"Family"_s, u"Customers"_s, u"Suppliers"_s, u"Others"_s},
            .MemoTitulo = u"Memo"_s,
            .MemoDescricao = u"Write here your memos !"_s,
            .Contactos = {Empresa({u"A sample contact: click Edit contact to change it."_s,
                                   u"The card closes up round empty fields."_s}),
                          Portal(u"All that goes on in town, on a single page."_s)}};
}

Sementes sementes::FR()
{
    return {.Idioma = u"FrancesFR"_s,
            .Remetente = u"Écrivez votre adresse ici (expéditeur)"_s,
            .Destinatario = u"Votre Excellence"_s,
            .Repeticoes = {u"Non"_s, u"Quotidienne"_s, u"Hebdomadaire"_s, u"Mensuelle"_s, u"Annuelle"_s},
            .Grupos = {u"Amis"_s, u"Collègues"_s, u"Famille"_s, u"Clients"_s, u"Fournisseurs"_s, u"D'autres"_s},
            .MemoTitulo = u"Memo"_s,
            .MemoDescricao = u"Écrivez ici vos notes !"_s,
            .Contactos = {Empresa({u"Un contact d’exemple\u00a0: modifiez-le à votre gré."_s,
                                   u"La fiche se resserre autour des champs vides."_s}),
                          Portal(u"Tout ce qui se passe en ville, sur une seule page."_s)}};
}

namespace
{
void Adicionar_Amostra(DE &de, const ContactoDeAmostra &c)
{
    const QString vazio;
    const auto outros = u"6"_s; // the last of the groups just written
    de.Executar("cmdAdicionarNome",
                {c.Nome, c.Telefone1, vazio, vazio, c.Telemoveis[0], c.Telemoveis[1], c.Telemoveis[2], vazio, vazio,
                 vazio, c.Email1, vazio, c.Website, c.Morada, c.Obs, c.Fotografia, outros});
}
} // namespace

bool sementes::Remetente_De_Amostra(const QString &remetente)
{
    const std::array amostras{PT(), BR(), UK(), FR()};
    return std::any_of(amostras.begin(), amostras.end(),
                       [&](const Sementes &s) { return remetente.trimmed() == s.Remetente; });
}

void sementes::Semear(DE &de, const Sementes &s)
{
    de.Executar("cmdUPDATETblConfig", {s.Idioma, s.Remetente, s.Destinatario});
    for (const QString &repeticao : s.Repeticoes) de.Executar("cmdINSERTRepeticao", {repeticao});
    for (const QString &grupo : s.Grupos) de.Executar("cmdAdicionarGrupo", {grupo});
    de.Executar("cmdAdicionarMemo", {s.MemoTitulo, s.MemoDescricao, u"495", u"645", u"2775", u"1185", u"Tahoma",
                                     u"8,25", u"False", u"False", u"65535", u"0"});
    for (const ContactoDeAmostra &contacto : s.Contactos) Adicionar_Amostra(de, contacto);
}
