#include "cards/ContactosDaTabela.h"

#include "cards/NomeDobrado.h"
#include "cards/RotulosDoCartao.h"
#include "vcard/CardContent.h"
#include "vcard/CardReader.h"
#include "vcard/CardWriter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
bool E_De_Numeros(CsvField campo)
{
    return campo == CsvField::Phone || campo == CsvField::Mobile || campo == CsvField::Fax;
}

// Fields of which a web book puts several values into one cell.
QStringList Valores_Da_Celula(CsvField campo, const QString &celula)
{
    const bool tem_varios = E_De_Numeros(campo) || campo == CsvField::Email || campo == CsvField::Website ||
                            campo == CsvField::Group || campo == CsvField::Address;
    QStringList valores = tem_varios ? celula.split(u" ::: "_s) : QStringList{celula};
    valores.removeIf([](const QString &valor) { return valor.trimmed().isEmpty(); });
    return valores;
}

bool Diz(const QString &rotulo, Rotulo lugar)
{
    const QStringList palavras = Nome_Dobrado(rotulo).split(u' ');
    const QStringList &idiomas = rotulos_do_cartao::Idiomas();
    return std::any_of(idiomas.begin(), idiomas.end(), [&](const QString &idioma) {
        return palavras.contains(Nome_Dobrado(rotulos_do_cartao::Em(lugar, idioma)));
    });
}

QStringList Tipos_Do_Lugar(CsvPlace lugar)
{
    if (lugar == CsvPlace::Home) return {u"home"_s};
    return lugar == CsvPlace::Work ? QStringList{u"work"_s} : QStringList();
}

// "00/00/0000" is how programs write that there is none.
bool E_So_Zeros(const QString &data)
{
    return std::none_of(data.begin(), data.end(),
                        [](QChar sinal) { return sinal.isLetterOrNumber() && sinal != u'0'; });
}

void Juntar_Linha(QString &parte, const QString &valor)
{
    parte = parte.isEmpty() ? valor : parte + u'\n' + valor;
}

QString *Parte_Do_Nome(CardName &nome, CsvField campo)
{
    switch (campo) {
    case CsvField::GivenName:
        return &nome.given;
    case CsvField::MiddleName:
        return &nome.middle;
    case CsvField::FamilyName:
        return &nome.family;
    case CsvField::NamePrefix:
        return &nome.prefix;
    case CsvField::NameSuffix:
        return &nome.suffix;
    default:
        return nullptr;
    }
}

QString &Parte_Da_Morada(CardAddress &morada, CsvField campo)
{
    switch (campo) {
    case CsvField::PostCode:
        return morada.code;
    case CsvField::City:
        return morada.city;
    case CsvField::Region:
        return morada.region;
    case CsvField::Country:
        return morada.country;
    default:
        return morada.street;
    }
}

bool E_De_Morada(CsvField campo) { return campo == CsvField::Address || isAddressPart(campo); }

// The card of a row, with what has no field of its own in properties that bear their column's name.
QByteArray Cartao_De(const CardContent &conteudo)
{
    CardWriter escritor;
    escritor.content(conteudo);
    for (const OtherProperty &outra : conteudo.others)
        escritor.entry(outra.name, outra.entry);
    return escritor.card();
}
} // namespace

ContactosDaTabela::ContactosDaTabela(CsvTable tabela, MapaDaTabela mapa, Opcoes opcoes)
    : tabela_(std::move(tabela)),
      mapa_(std::move(mapa)),
      opcoes_(std::move(opcoes)),
      primeira_(tabela_.hasHeader && !tabela_.rows.empty() ? 1 : 0),
      tem_telemoveis_(std::any_of(mapa_.colunas.begin(), mapa_.colunas.end(),
                                  [](const CsvColumn &coluna) { return coluna.field == CsvField::Mobile; }))
{
    Ordens_Das_Datas();
}

QString ContactosDaTabela::Nome_Da_Coluna(std::size_t coluna) const
{
    const QString nome =
        primeira_ == 0 ? QString() : tabela_.rows.front().value(static_cast<qsizetype>(coluna)).simplified();
    return nome.isEmpty() ? QString::number(coluna + 1) : nome;
}

CsvColumn ContactosDaTabela::Coluna_De(std::size_t coluna) const
{
    return coluna < mapa_.colunas.size() ? mapa_.colunas[coluna] : CsvColumn();
}

void ContactosDaTabela::Ordens_Das_Datas()
{
    for (std::size_t i = 0; i < mapa_.colunas.size(); ++i) {
        QStringList datas;
        if (mapa_.colunas[i].field == CsvField::Birthday)
            for (std::size_t linha = primeira_; linha < tabela_.rows.size(); ++linha)
                datas << tabela_.rows[linha].value(static_cast<qsizetype>(i));
        ordens_.push_back(mapa_.ordem.value_or(dateOrder(datas, opcoes_.usual)));
    }
}

// The cell of this very row that says what kind the value is.
QString ContactosDaTabela::Rotulo_Da_Linha(const QStringList &linha, std::size_t coluna) const
{
    const CsvColumn esta = Coluna_De(coluna);
    if (esta.number == 0) return {};
    const auto achada = std::find_if(mapa_.colunas.begin(), mapa_.colunas.end(), [&](const CsvColumn &outra) {
        const bool e_do_mesmo =
            outra.field == esta.field || (E_De_Morada(outra.field) && E_De_Morada(esta.field));
        return outra.isLabel && outra.number == esta.number && e_do_mesmo;
    });
    if (achada == mapa_.colunas.end()) return {};
    return linha.value(achada - mapa_.colunas.begin()).simplified();
}

CardEntry ContactosDaTabela::Entrada(const QStringList &linha, std::size_t coluna, const QString &valor) const
{
    CardEntry entrada;
    entrada.value = valor;
    const QString rotulo = Rotulo_Da_Linha(linha, coluna);
    const CsvField campo = Coluna_De(coluna).field;
    const CsvField dito = rotulo.isEmpty() ? CsvField::Unknown : conhecidos_.columns({rotulo}).front().field;
    if (campo == CsvField::Mobile || dito == CsvField::Mobile || Diz(rotulo, Rotulo::Telemovel))
        entrada.types << u"cell"_s;
    if (campo == CsvField::Fax || dito == CsvField::Fax || Diz(rotulo, Rotulo::Fax))
        entrada.types << u"fax"_s;
    if (Diz(rotulo, Rotulo::Pager)) entrada.types << u"pager"_s;
    if (Diz(rotulo, Rotulo::Casa)) entrada.types << u"home"_s;
    if (Diz(rotulo, Rotulo::Trabalho)) entrada.types << u"work"_s;
    // Where mobiles have a column of their own a telephone is none, whatever its digits say.
    if (campo == CsvField::Phone && rotulo.isEmpty() && tem_telemoveis_) entrada.types << u"voice"_s;
    if (entrada.types.isEmpty()) entrada.label = rotulo;
    return entrada;
}

void ContactosDaTabela::Por_Morada(CardContent &conteudo, const QStringList &linha, std::size_t coluna,
                                   const QString &valor) const
{
    const CsvColumn esta = Coluna_De(coluna);
    CardAddress nova;
    nova.types = Tipos_Do_Lugar(esta.place);
    if (nova.types.isEmpty()) nova.types = Entrada(linha, coluna, valor).types;
    // Parts of one place and number are one address; for that time they bear it as their label.
    nova.label = u"%1 %2"_s.arg(static_cast<int>(esta.place)).arg(esta.number);
    const auto dela = std::find_if(conteudo.addresses.begin(), conteudo.addresses.end(),
                                   [&](const CardAddress &outra) { return outra.label == nova.label; });
    if (esta.field == CsvField::Address || dela == conteudo.addresses.end()) {
        if (esta.field == CsvField::Address) nova.label.clear();
        conteudo.addresses.push_back(nova);
        Juntar_Linha(Parte_Da_Morada(conteudo.addresses.back(), esta.field), valor);
    } else {
        Juntar_Linha(Parte_Da_Morada(*dela, esta.field), valor);
    }
}

void ContactosDaTabela::Por_Aniversario(CardContent &conteudo, std::size_t coluna, const QString &valor) const
{
    if (E_So_Zeros(valor)) return;
    CardBirthday aniversario{valor, {}};
    if (const auto data = csvDate(valor, ordens_[coluna], opcoes_.este_ano))
        aniversario.date = CardDate{data->day, data->month, data->year};
    conteudo.birthdays.push_back(aniversario);
}

void ContactosDaTabela::Por_Partes_Do_Aniversario(CardContent &conteudo, const QStringList &linha) const
{
    QStringList partes{QString(), QString(), QString()};
    constexpr std::array campos{CsvField::BirthDay, CsvField::BirthMonth, CsvField::BirthYear};
    for (std::size_t i = 0; i < mapa_.colunas.size(); ++i) {
        const auto parte = std::find(campos.begin(), campos.end(), mapa_.colunas[i].field);
        if (parte != campos.end())
            partes[parte - campos.begin()] = linha.value(static_cast<qsizetype>(i)).trimmed();
    }
    if (E_So_Zeros(partes.join(QString()))) return;
    const QString ano = E_So_Zeros(partes[2]) ? QString() : partes[2];
    const QString escrita = partes[0] + u'/' + partes[1] + (ano.isEmpty() ? QString() : u'/' + ano);
    CardBirthday aniversario{escrita, {}};
    if (const auto data = csvDate(escrita, DateOrder::DayFirst, opcoes_.este_ano))
        aniversario.date = CardDate{data->day, data->month, data->year};
    conteudo.birthdays.push_back(aniversario);
}

void ContactosDaTabela::Por(CardContent &conteudo, const QStringList &linha, std::size_t coluna,
                            const QString &valor) const
{
    const CsvField campo = Coluna_De(coluna).field;
    CardName nome = conteudo.name.value_or(CardName());
    if (QString *parte = Parte_Do_Nome(nome, campo)) {
        *parte = parte->isEmpty() ? valor : *parte + u' ' + valor;
        conteudo.name = nome;
        return;
    }
    if (E_De_Morada(campo)) return Por_Morada(conteudo, linha, coluna, valor);
    const CardEntry entrada = Entrada(linha, coluna, valor);
    const bool tem_nome = !conteudo.formattedName.value_or(QString()).isEmpty();
    switch (campo) {
    case CsvField::Nickname:
        conteudo.nicknames << valor;
        return;
    case CsvField::Phone:
    case CsvField::Mobile:
    case CsvField::Fax:
        conteudo.phones.push_back(entrada);
        return;
    case CsvField::Email:
        conteudo.emails.push_back(entrada);
        return;
    case CsvField::Website:
        conteudo.websites.push_back(entrada);
        return;
    case CsvField::Birthday:
        return Por_Aniversario(conteudo, coluna, valor);
    case CsvField::BirthDay:
    case CsvField::BirthMonth:
    case CsvField::BirthYear:
        return; // together, once
    case CsvField::Note:
        conteudo.notes.push_back(entrada);
        return;
    case CsvField::Group:
        conteudo.categories << valor;
        return;
    case CsvField::FullName:
        if (tem_nome) break;
        conteudo.formattedName = valor;
        return;
    default:
        break;
    }
    OtherProperty outra{"X-COLUMN", entrada};
    outra.entry.label = Nome_Da_Coluna(coluna);
    conteudo.others.push_back(outra);
}

ContactoDaLinha ContactosDaTabela::Ler(std::size_t qual) const
{
    const QStringList &linha = tabela_.rows.at(primeira_ + qual);
    CardContent conteudo;
    ContactoDaLinha contacto;
    for (std::size_t i = 0; i < static_cast<std::size_t>(linha.size()); ++i) {
        const CsvColumn coluna = Coluna_De(i);
        if (coluna.isLabel) continue; // told with its value
        for (const QString &valor : Valores_Da_Celula(coluna.field, linha[static_cast<qsizetype>(i)])) {
            if (E_De_Numeros(coluna.field) && isScientificNumber(valor))
                contacto.estragados << valor.trimmed();
            else
                Por(conteudo, linha, i, valor.trimmed());
        }
    }
    Por_Partes_Do_Aniversario(conteudo, linha);
    for (CardAddress &morada : conteudo.addresses)
        morada.label.clear();
    const CardFile ficheiro = CardReader().read(Cartao_De(conteudo));
    if (ficheiro.cards.empty()) return contacto;
    contacto.lido = ContactoDoCartao(opcoes_.idioma, opcoes_.grupos).Ler(ficheiro.cards.front());
    if (shownName(conteudo).isEmpty()) contacto.lido.colunas[Coluna::Nome].clear(); // written as a sign
    return contacto;
}
