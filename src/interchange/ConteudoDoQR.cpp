#include "interchange/ConteudoDoQR.h"

#include "interchange/ColunasDoContacto.h"
#include "interchange/NumeroDoCartao.h"
#include "vcard/CardContent.h"
#include "vcard/CardWriter.h"

namespace
{
// A person's own words for a number are for the book.
CardEntry Sem_Rotulo(CardEntry entrada)
{
    entrada.label.clear();
    return entrada;
}

class Escolha
{
public:
    explicit Escolha(const CardContent &conteudo)
    {
        nucleo_.formattedName = Cortado(shownName(conteudo).simplified(), ColunasDoContacto::maior_nome);
        cartao_ = writtenCard(nucleo_);
    }

    // Takes what the change adds, if there is room for it.
    template<class Mudanca> void Juntar(const Mudanca &mudanca)
    {
        CardContent maior = nucleo_;
        mudanca(maior);
        const QByteArray cartao = writtenCard(maior);
        if (cartao.size() >= maior_conteudo_do_qr) return;
        nucleo_ = maior;
        cartao_ = cartao;
    }

    const QByteArray &Cartao() const { return cartao_; }

private:
    CardContent nucleo_;
    QByteArray cartao_;
};
} // namespace

QByteArray Conteudo_Do_QR(const CardContent &conteudo)
{
    Escolha escolha(conteudo);
    if (conteudo.name) escolha.Juntar([&](CardContent &c) { c.name = conteudo.name; });
    for (const std::size_t i : byPreference(conteudo.phones))
        if (const CardEntry &telefone = conteudo.phones[i]; !telefone.value.trimmed().isEmpty())
            escolha.Juntar([&](CardContent &c) { c.phones.push_back(Sem_Rotulo(telefone)); });
    for (const std::size_t i : byPreference(conteudo.emails))
        if (const CardEntry &email = conteudo.emails[i]; !email.value.trimmed().isEmpty())
            escolha.Juntar([&](CardContent &c) { c.emails.push_back(Sem_Rotulo(email)); });
    if (!conteudo.organisation.isEmpty())
        escolha.Juntar([&](CardContent &c) { c.organisation = conteudo.organisation; });
    for (const std::size_t i : byPreference(conteudo.websites))
        if (const CardEntry &pagina = conteudo.websites[i]; !pagina.value.trimmed().isEmpty())
            escolha.Juntar([&](CardContent &c) { c.websites.push_back(Sem_Rotulo(pagina)); });
    for (const std::size_t i : byPreference(conteudo.addresses))
        escolha.Juntar([&](CardContent &c) {
            c.addresses.push_back(conteudo.addresses[i]);
            c.addresses.back().label.clear();
        });
    return escolha.Cartao();
}
