// A book with one group, a server in memory, and what a person does to both.
#pragma once

#include "cards/CartaoDoContacto.h"
#include "sincronizacao/LivroEmMemoria.h"
#include "sincronizacao/Sincronizacao.h"
#include "testlib/Sistema.h"

#include <QTest>
#include <span>

struct MesaDaSincronizacao {
    MesaDaSincronizacao()
    {
        s.Novo_Utilizador(QStringLiteral("Eva"), QStringLiteral("x"));
        s.Entrar(QStringLiteral("Eva"));
        s.Escrever(
            QStringLiteral("PRAGMA synchronous=OFF")); // what the test itself writes may be lost with it
        s.Escrever(QStringLiteral("DELETE FROM TblLista"));
        grupo = s.Novo_Grupo(QStringLiteral("Telemóvel"), s.geral.SessaoActual.IdUtilizador.toInt());
        ContaSincronizada conta;
        conta.IDGrupo = grupo;
        conta.Livro = QStringLiteral("https://dav.example/livro/");
        Memoria().Guardar(conta);
    }

    MemoriaDaSincronizacao Memoria() { return {s.geral.de, s.geral.SessaoActual.IdUtilizador}; }

    // Here.
    int Contacto(const QString &nome, const QString &telemovel = {}, int em = 0)
    {
        return s.Novo_Contacto({{QStringLiteral("Nome"), Value(nome)},
                                {QStringLiteral("Telemovel1"), Value(telemovel)},
                                {QStringLiteral("Grupo"), Value(em > 0 ? em : grupo)}});
    }
    void Mudar(int ID, const QString &coluna, const QString &valor)
    {
        s.Escrever(QStringLiteral("UPDATE TblLista SET %1='%2' WHERE ID=%3").arg(coluna, valor).arg(ID));
    }
    // As the program does it: the kept card goes too.
    void Eliminar(int ID)
    {
        s.Escrever(QStringLiteral("DELETE FROM TblLista WHERE ID=%1").arg(ID));
        s.Escrever(QStringLiteral("DELETE FROM TblCartoes WHERE IDContacto=%1").arg(ID));
    }
    QString Valor(int ID, const QString &coluna)
    {
        return s.Linhas(QStringLiteral("SELECT %1 FROM TblLista WHERE ID=%2").arg(coluna).arg(ID)).value(0);
    }
    int ID_De(const QString &nome)
    {
        return s.Linhas(QStringLiteral("SELECT ID FROM TblLista WHERE Nome='%1'").arg(nome)).value(0).toInt();
    }
    QStringList Nomes(const QString &coluna = QStringLiteral("Nome"))
    {
        return s.Linhas(
            QStringLiteral("SELECT %1 FROM TblLista WHERE Grupo=%2 ORDER BY Nome").arg(coluna).arg(grupo));
    }
    QStringList Ocorrencias()
    {
        return s.Linhas(
            QStringLiteral("SELECT Que, Nome, Campo, Valor, Outro FROM TblOcorrencias ORDER BY ID"));
    }

    // There.
    static QByteArray Cartao(const QString &uid, const QString &nome, const QByteArray &linhas = {})
    {
        return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + uid.toUtf8() + "\r\nFN:" + nome.toUtf8() +
               "\r\nN:" + nome.toUtf8() + ";;;;\r\n" + linhas + "END:VCARD\r\n";
    }
    static QString Href(const QString &uid) { return QStringLiteral("/livro/%1.vcf").arg(uid); }
    void Por_La(const QString &uid, const QString &nome, const QByteArray &linhas = {})
    {
        servidor.Por(Href(uid), Cartao(uid, nome, linhas));
    }
    // The one card that has the text in it.
    QString Href_Com(const QByteArray &texto) const
    {
        for (const auto &[href, cartao] : servidor.cartoes)
            if (cartao.texto.contains(texto)) return href;
        return {};
    }
    QByteArray Texto_La(const QString &href) const
    {
        const auto achado = servidor.cartoes.find(href);
        return achado == servidor.cartoes.end() ? QByteArray() : achado->second.texto;
    }
    // As a telephone does it: everything that it does not know stays.
    void Mudar_La(const QString &href, Coluna coluna, const QString &valor)
    {
        const QByteArray texto = Texto_La(href);
        ContactoParaCartao contacto;
        contacto.colunas = Pessoa_Do_Cartao(texto, QStringLiteral("PortuguesPT"))->lido.colunas;
        contacto.colunas[coluna] = valor;
        servidor.Por(href, CartaoDoContacto(QStringLiteral("PortuguesPT")).Remendado(contacto, texto));
    }
    QString Valor_La(const QString &href, Coluna coluna) const
    {
        const auto pessoa = Pessoa_Do_Cartao(Texto_La(href), QStringLiteral("PortuguesPT"));
        return pessoa ? pessoa->lido.colunas[coluna] : QString();
    }

    std::unique_ptr<Sincronizacao> Nova(Sincronizacao::Modo modo = Sincronizacao::Modo::Normal)
    {
        return std::make_unique<Sincronizacao>(s.geral, s.relogio, std::make_unique<LivroEmMemoria>(servidor),
                                               modo);
    }

    // A whole run.
    ResultadoDaSincronizacao Correr(Sincronizacao::Modo modo = Sincronizacao::Modo::Normal)
    {
        servidor.pedidos.clear();
        std::optional<ResultadoDaSincronizacao> resultado;
        auto corrida = Nova(modo);
        QObject::connect(corrida.get(), &Sincronizacao::Terminada, [&](const auto &fim) { resultado = fim; });
        corrida->Comecar();
        while (!resultado)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return *resultado;
    }

    // Whether a person reads the same on both sides, the order of lines that came with a card set aside.
    static QStringList Lido(ColunasDoContacto colunas);
    QStringList Aqui();
    QStringList La() const;

    Sistema s;
    ServidorEmMemoria servidor;
    int grupo = 0;
};

inline QStringList MesaDaSincronizacao::Lido(ColunasDoContacto colunas)
{
    colunas[Coluna::IDGrupo].clear();
    for (const std::span<const Coluna> especie : {std::span<const Coluna>(ColunasDoContacto::telefones),
                                                  std::span<const Coluna>(ColunasDoContacto::telemoveis),
                                                  std::span<const Coluna>(ColunasDoContacto::emails)})
        std::sort(&colunas[especie.front()], &colunas[especie.back()] + 1); // a card knows no columns
    QStringList linhas = colunas[Coluna::Obs].split(QStringLiteral("\r\n"));
    linhas.sort();
    colunas[Coluna::Obs] = linhas.join(u'/');
    return {QStringList(colunas.valores.begin(), colunas.valores.end()).join(u'|')};
}

inline QStringList MesaDaSincronizacao::Aqui()
{
    QStringList todos;
    for (const auto &[ID, colunas] : GrupoLocal(s.geral, grupo).Todos())
        todos << Lido(colunas);
    todos.sort();
    return todos;
}

inline QStringList MesaDaSincronizacao::La() const
{
    QStringList todos;
    for (const auto &[href, cartao] : servidor.cartoes)
        if (const auto pessoa = Pessoa_Do_Cartao(cartao.texto, QStringLiteral("PortuguesPT")))
            todos << Lido(pessoa->lido.colunas);
    todos.sort();
    return todos;
}
