// What people do in the course of time to a book that lies in several places, and what must be left of it in
// the end: each value that somebody wrote last, be it in its column or as a line of Obs, unless somebody who
// saw it took it away; where a place may only tell of it, what it told counts too.
#pragma once

#include "sincronizacao/MesaDaSincronizacao.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

// One place in which the book lies and people work on it.
class LadoDeGente
{
public:
    virtual ~LadoDeGente() = default;

    // Names of its own for those who are there.
    virtual QStringList Quem() = 0;
    virtual ColunasDoContacto Ler(const QString &quem) = 0;
    virtual void Mudar(const QString &quem, Coluna coluna, const QString &valor) = 0;
    virtual void Tirar(const QString &quem) = 0;
    // With a number, a web site, and something that only a card can hold.
    virtual void Novo(const QString &nome, const QString &numero, const QString &sitio,
                      const QString &jogo) = 0;
    virtual bool Guarda_Cartoes() const = 0; // as they are, and not contacts
    virtual QString Cartoes() { return {}; } // their text, unfolded
    virtual QString Ditos() { return {}; }   // what it told people

    QStringList Tudo()
    {
        QStringList todos;
        for (const QString &quem : Quem())
            todos << MesaDaSincronizacao::Lido(Ler(quem));
        todos.sort();
        return todos;
    }
};

// The desk's group.
class LadoDaMesa : public LadoDeGente
{
public:
    explicit LadoDaMesa(MesaDaSincronizacao &mesa) : m_(mesa) {}

    QStringList Quem() override { return m_.Nomes(u"ID"_s); }
    ColunasDoContacto Ler(const QString &quem) override
    {
        return GrupoLocal(m_.s.geral, m_.grupo).Ler(quem.toInt())->colunas;
    }
    void Mudar(const QString &quem, Coluna coluna, const QString &valor) override
    {
        const auto qual = static_cast<std::size_t>(coluna);
        m_.Mudar(quem.toInt(), QString::fromLatin1(ColunasDoContacto::na_tabela.at(qual)), valor);
    }
    void Tirar(const QString &quem) override { m_.Eliminar(quem.toInt()); }
    void Novo(const QString &nome, const QString &numero, const QString &sitio,
              const QString & /*jogo*/) override
    {
        m_.s.Novo_Contacto({{u"Nome"_s, Value(nome)},
                            {u"Telemovel1"_s, Value(numero)},
                            {u"Website"_s, Value(sitio)},
                            {u"Grupo"_s, Value(m_.grupo)}});
    }
    bool Guarda_Cartoes() const override { return false; }
    QString Ditos() override { return m_.Ocorrencias().join(u'\n'); }

private:
    MesaDaSincronizacao &m_;
};

// Cards by their names, as a telephone sees and changes them: everything that it does not know stays.
class LadoDosCartoes : public LadoDeGente
{
public:
    ColunasDoContacto Ler(const QString &quem) override
    {
        return Pessoa_Do_Cartao(Texto(quem), lingua_)->lido.colunas;
    }
    void Mudar(const QString &quem, Coluna coluna, const QString &valor) override
    {
        ContactoParaCartao contacto;
        contacto.colunas = Ler(quem);
        contacto.colunas[coluna] = valor;
        Por(quem, CartaoDoContacto(lingua_).Remendado(contacto, Texto(quem)));
    }
    void Novo(const QString &nome, const QString &numero, const QString &sitio, const QString &jogo) override
    {
        const QString uid = u"la-"_s + numero;
        Por(Nome_Do_Novo(uid),
            MesaDaSincronizacao::Cartao(uid, nome,
                                        "TEL;TYPE=CELL:" + numero.toUtf8() + "\r\nURL:" + sitio.toUtf8() +
                                            "\r\nX-JOGO:" + jogo.toUtf8() + "\r\n"));
    }
    bool Guarda_Cartoes() const override { return true; }
    QString Cartoes() override
    {
        QString todos;
        for (const QString &quem : Quem())
            todos += QString::fromUtf8(Texto(quem)).replace(u"\r\n"_s, u"\n"_s).remove(u"\n "_s);
        return todos;
    }

protected:
    virtual QByteArray Texto(const QString &quem) = 0;
    virtual void Por(const QString &quem, const QByteArray &texto) = 0;
    virtual QString Nome_Do_Novo(const QString &uid) = 0;

private:
    const QString lingua_ = u"PortuguesPT"_s;
};

// The server in memory of a desk.
class LadoDoServidor final : public LadoDosCartoes
{
public:
    explicit LadoDoServidor(ServidorEmMemoria &servidor) : servidor_(servidor) {}

    QStringList Quem() override
    {
        QStringList todos;
        for (const auto &[href, cartao] : servidor_.cartoes)
            todos << href;
        return todos;
    }
    void Tirar(const QString &quem) override { servidor_.Tirar(quem); }

protected:
    QByteArray Texto(const QString &quem) override { return servidor_.cartoes.at(quem).texto; }
    void Por(const QString &quem, const QByteArray &texto) override { servidor_.Por(quem, texto); }
    QString Nome_Do_Novo(const QString &uid) override { return MesaDaSincronizacao::Href(uid); }

private:
    ServidorEmMemoria &servidor_;
};

class MesDeGente
{
public:
    MesDeGente(std::vector<std::unique_ptr<LadoDeGente>> lados, quint32 semente)
        : lados_(std::move(lados)), acaso_(semente)
    {
    }
    // A desk and its server.
    MesDeGente(MesaDaSincronizacao &mesa, quint32 semente) : acaso_(semente)
    {
        lados_.push_back(std::make_unique<LadoDaMesa>(mesa));
        lados_.push_back(std::make_unique<LadoDoServidor>(mesa.servidor));
    }

    // One thing that somebody does somewhere.
    void Alguma_Coisa()
    {
        const int qual = Dado(20);
        LadoDeGente &onde = Algures();
        if (qual < 3) return Um_Novo(onde);
        const QString quem = Alguem(onde);
        if (quem.isEmpty()) return;
        qual < 5 ? Tirar(onde, quem) : Mudar(onde, quem);
    }

    void Povoar(int quantos)
    {
        for (int i = 0; i < quantos; ++i)
            Um_Novo(Algures());
    }

    int Dado(int lados) { return static_cast<int>(acaso_.bounded(lados)); }

    // How a line of Faltas about one who was deleted and is there all the same begins.
    static constexpr QLatin1StringView voltou_sem_palavra{"deleted, there again, and nobody told: "};

    // What is wrong; empty if nothing. Where told suffices, a value may also be in what a place told people,
    // and who was deleted and is there all the same must be.
    QStringList Faltas(bool basta_dito = false)
    {
        QStringList faltas = Desiguais();
        QString tudo = lados_.front()->Tudo().join(u'\n');
        QString cartoes, ditos;
        for (const auto &lado : lados_) {
            cartoes += lado->Cartoes();
            ditos += lado->Ditos();
        }
        for (const QString &vivo : vivos_)
            if (!tudo.contains(vivo) && !(basta_dito && ditos.contains(vivo))) faltas << "lost: " + vivo;
        for (const QString &sitio : sitios_)
            if (tudo.count(sitio) > 1) faltas << "twice: " + sitio;
        for (const QString &jogo : jogos_)
            if (tudo.contains(QString(jogo).replace("jogo", "sitio")) && !cartoes.contains(jogo))
                faltas << "lost of the card: " + jogo;
        return basta_dito ? faltas + Voltaram_Sem_Palavra(tudo, ditos) : faltas;
    }

    qsizetype Vivos() const { return vivos_.size(); }

private:
    static constexpr std::array colunas_{Coluna::Telemovel1, Coluna::Telemovel2, Coluna::Telefone1,
                                         Coluna::Fax,        Coluna::Email1,     Coluna::Morada,
                                         Coluna::Obs,        Coluna::Nome};

    LadoDeGente &Algures()
    {
        return *lados_.at(static_cast<std::size_t>(Dado(static_cast<int>(lados_.size()))));
    }

    QString Alguem(LadoDeGente &onde)
    {
        const QStringList todos = onde.Quem();
        return todos.isEmpty() ? QString() : todos.at(Dado(static_cast<int>(todos.size())));
    }

    QString Valor_Novo(Coluna coluna)
    {
        const QString numero = QString::number(10'000'000 + ++contador_);
        if (coluna == Coluna::Email1) return u"m%1@x.example"_s.arg(numero);
        if (coluna == Coluna::Nome) return u"Nome %1"_s.arg(numero);
        if (coluna == Coluna::Morada || coluna == Coluna::Obs) return u"texto %1"_s.arg(numero);
        return u"9"_s + numero;
    }

    // Who sees a contact as it is takes these values away with open eyes.
    void Esquecer(const QString &visto)
    {
        vivos_.removeIf([&](const QString &vivo) { return visto.contains(vivo); });
    }

    // Lines that came with the card are not a person's to take out.
    static QString Sem_Bloco(const QString &obs) { return obs.section(u"---"_s, 0, 0); }

    void Um_Novo(LadoDeGente &onde)
    {
        sitios_ << u"http://x.example/sitio%1/"_s.arg(++contador_);
        const QString sitio = sitios_.constLast();
        const QString nome = Valor_Novo(Coluna::Nome);
        const QString numero = Valor_Novo(Coluna::Telemovel1);
        vivos_ << nome << numero;
        nomes_[sitio] << nome;
        const QString jogo = QString(sitio).replace("sitio", "jogo");
        if (onde.Guarda_Cartoes()) jogos_ << jogo;
        onde.Novo(nome, numero, sitio, jogo);
    }

    void Mudar(LadoDeGente &onde, const QString &quem)
    {
        const Coluna coluna = colunas_.at(static_cast<std::size_t>(Dado(colunas_.size())));
        const ColunasDoContacto antes = onde.Ler(quem);
        const QString &valor = antes[coluna];
        if (coluna == Coluna::Obs) {
            const bool tira = !onde.Guarda_Cartoes() && Dado(6) == 0;
            if (tira) Esquecer(Sem_Bloco(valor));
            return onde.Mudar(quem, coluna, tira ? valor.mid(Sem_Bloco(valor).size()) : Acrescentado(valor));
        }
        const QString novo = Dado(6) == 0 && coluna != Coluna::Nome ? QString() : Valor_Novo(coluna);
        Esquecer(valor);
        if (!novo.isEmpty()) vivos_ << novo;
        if (coluna == Coluna::Nome) nomes_[antes[Coluna::Website]] << novo;
        onde.Mudar(quem, coluna, novo);
    }

    QString Acrescentado(const QString &antes)
    {
        const QString novo = Valor_Novo(Coluna::Obs);
        vivos_ << novo;
        return antes.isEmpty() ? novo : novo + u"\r\n"_s + antes;
    }

    void Tirar(LadoDeGente &onde, const QString &quem)
    {
        const ColunasDoContacto visto = onde.Ler(quem);
        Esquecer(MesaDaSincronizacao::Lido(visto).join(u' '));
        tirados_ << visto[Coluna::Website];
        onde.Tirar(quem);
    }

    QStringList Desiguais()
    {
        QStringList faltas;
        const QStringList um = lados_.front()->Tudo();
        for (std::size_t i = 1; i < lados_.size(); ++i) {
            const QStringList outro = lados_[i]->Tudo();
            if (um == outro) continue;
            for (const QString &linha : um + outro)
                if (um.count(linha) != outro.count(linha))
                    faltas << u"not in both 0 and %1: "_s.arg(i) + linha;
        }
        return faltas;
    }

    // Whose names nobody mentioned.
    QStringList Voltaram_Sem_Palavra(const QString &tudo, const QString &ditos)
    {
        QStringList faltas;
        for (const QString &sitio : tirados_)
            if (tudo.contains(sitio) &&
                std::none_of(nomes_[sitio].cbegin(), nomes_[sitio].cend(),
                             [&](const QString &nome) { return ditos.contains(nome); }))
                faltas << voltou_sem_palavra + sitio;
        return faltas;
    }

    std::vector<std::unique_ptr<LadoDeGente>> lados_;
    QRandomGenerator acaso_;
    int contador_ = 0;
    QStringList vivos_;
    QStringList sitios_;
    QStringList jogos_;
    QSet<QString> tirados_;             // web sites of those whom somebody deleted
    QHash<QString, QStringList> nomes_; // by the web site, all that they had
};
