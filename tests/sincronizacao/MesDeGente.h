// What people do to a book and to its copy on a server in the course of time, and what must be left of it in
// the end: each value that somebody wrote last, be it in its column or as a line of Obs, unless somebody who
// saw it took it away.
#pragma once

#include "sincronizacao/MesaDaSincronizacao.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

class MesDeGente
{
public:
    MesDeGente(MesaDaSincronizacao &mesa, quint32 semente) : m_(mesa), acaso_(semente) {}

    // One thing that somebody does, on either side.
    void Alguma_Coisa()
    {
        const int qual = Dado(20);
        const bool aqui = Dado(2) == 0;
        if (qual < 3)
            aqui ? Novo_Aqui() : Novo_La();
        else if (qual < 5)
            aqui ? Tirar_Aqui() : Tirar_La();
        else
            aqui ? Mudar_Aqui() : Mudar_La();
    }

    void Povoar(int quantos)
    {
        for (int i = 0; i < quantos; ++i)
            Dado(2) == 0 ? Novo_Aqui() : Novo_La();
    }

    // What is wrong; empty if nothing.
    QStringList Faltas()
    {
        QStringList faltas;
        const QStringList aqui = m_.Aqui();
        const QStringList la = m_.La();
        if (aqui != la)
            for (const QString &um : aqui + la)
                if (aqui.count(um) != la.count(um)) faltas << "only on one side: " + um;
        const QString tudo = aqui.join(u'\n');
        QString cartoes;
        for (const auto &[href, cartao] : m_.servidor.cartoes)
            cartoes += QString::fromUtf8(cartao.texto).remove(QStringLiteral("\r\n "));
        for (const QString &vivo : vivos_)
            if (!tudo.contains(vivo)) faltas << "lost: " + vivo;
        for (const QString &sitio : sitios_)
            if (tudo.count(sitio) > 1) faltas << "twice: " + sitio;
        for (const QString &jogo : jogos_)
            if (tudo.contains(QString(jogo).replace("jogo", "sitio")) && !cartoes.contains(jogo))
                faltas << "lost of the card: " + jogo;
        return faltas;
    }

    qsizetype Vivos() const { return vivos_.size(); }

private:
    static constexpr std::array colunas_{Coluna::Telemovel1, Coluna::Telemovel2, Coluna::Telefone1,
                                         Coluna::Fax,        Coluna::Email1,     Coluna::Morada,
                                         Coluna::Obs,        Coluna::Nome};

    int Dado(int lados) { return static_cast<int>(acaso_.bounded(lados)); }

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

    // The new content of a column, as who sees the old one writes it.
    QString Escrito(Coluna coluna, const QString &antes)
    {
        const QString novo = Dado(6) == 0 && coluna != Coluna::Nome ? QString() : Valor_Novo(coluna);
        const bool acrescenta = coluna == Coluna::Obs && !novo.isEmpty();
        if (!acrescenta) Esquecer(antes);
        if (!novo.isEmpty()) vivos_ << novo;
        return acrescenta && !antes.isEmpty() ? novo + u"\r\n"_s + antes : novo;
    }

    // Lines that came with the card are not a person's to take out.
    static QString Sem_Bloco(const QString &obs) { return obs.section(u"---"_s, 0, 0); }

    void Novo_Aqui()
    {
        const QString sitio = Sitio();
        const QString nome = Valor_Novo(Coluna::Nome);
        const QString numero = Valor_Novo(Coluna::Telemovel1);
        vivos_ << nome << numero;
        m_.s.Novo_Contacto({{u"Nome"_s, Value(nome)},
                            {u"Telemovel1"_s, Value(numero)},
                            {u"Website"_s, Value(sitio)},
                            {u"Grupo"_s, Value(m_.grupo)}});
    }

    void Novo_La()
    {
        const QString sitio = Sitio();
        const QString nome = Valor_Novo(Coluna::Nome);
        const QString numero = Valor_Novo(Coluna::Telemovel1);
        vivos_ << nome << numero;
        const QString jogo = QString(sitio).replace("sitio", "jogo");
        jogos_ << jogo;
        m_.Por_La(u"la%1"_s.arg(contador_), nome,
                  "TEL;TYPE=CELL:" + numero.toUtf8() + "\r\nURL:" + sitio.toUtf8() +
                      "\r\nX-JOGO:" + jogo.toUtf8() + "\r\n");
    }

    QString Sitio()
    {
        sitios_ << u"http://x.example/sitio%1/"_s.arg(++contador_);
        return sitios_.constLast();
    }

    int Alguem_Aqui()
    {
        const QStringList todos = m_.Nomes(u"ID"_s);
        return todos.isEmpty() ? 0 : todos.at(Dado(static_cast<int>(todos.size()))).toInt();
    }

    QString Alguem_La()
    {
        if (m_.servidor.cartoes.empty()) return {};
        return std::next(m_.servidor.cartoes.begin(), Dado(static_cast<int>(m_.servidor.cartoes.size())))
            ->first;
    }

    void Mudar_Aqui()
    {
        const int ID = Alguem_Aqui();
        if (ID == 0) return;
        const Coluna coluna = colunas_.at(static_cast<std::size_t>(Dado(colunas_.size())));
        const QString nome =
            QString::fromLatin1(ColunasDoContacto::na_tabela.at(static_cast<std::size_t>(coluna)));
        const QString antes = m_.Valor(ID, nome);
        if (coluna == Coluna::Obs && Dado(6) == 0) {
            Esquecer(Sem_Bloco(antes));
            return m_.Mudar(ID, nome, antes.mid(Sem_Bloco(antes).size()));
        }
        m_.Mudar(ID, nome, coluna == Coluna::Obs ? Acrescentado(antes) : Escrito(coluna, antes));
    }

    QString Acrescentado(const QString &antes)
    {
        const QString novo = Valor_Novo(Coluna::Obs);
        vivos_ << novo;
        return antes.isEmpty() ? novo : novo + u"\r\n"_s + antes;
    }

    void Mudar_La()
    {
        const QString href = Alguem_La();
        if (href.isEmpty()) return;
        const Coluna coluna = colunas_.at(static_cast<std::size_t>(Dado(colunas_.size())));
        const QString antes = m_.Valor_La(href, coluna);
        m_.Mudar_La(href, coluna, coluna == Coluna::Obs ? Acrescentado(antes) : Escrito(coluna, antes));
    }

    void Tirar_Aqui()
    {
        const int ID = Alguem_Aqui();
        if (ID == 0) return;
        Esquecer(MesaDaSincronizacao::Lido(GrupoLocal(m_.s.geral, m_.grupo).Todos().at(ID)).join(u' '));
        m_.Eliminar(ID);
    }

    void Tirar_La()
    {
        const QString href = Alguem_La();
        if (href.isEmpty()) return;
        const auto pessoa = Pessoa_Do_Cartao(m_.Texto_La(href), u"PortuguesPT"_s);
        Esquecer(MesaDaSincronizacao::Lido(pessoa->lido.colunas).join(u' '));
        m_.servidor.Tirar(href);
    }

    MesaDaSincronizacao &m_;
    QRandomGenerator acaso_;
    int contador_ = 0;
    QStringList vivos_;
    QStringList sitios_;
    QStringList jogos_;
};
