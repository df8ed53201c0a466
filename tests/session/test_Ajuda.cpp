// The entries of the help menu: what each hands to the desktop.
#include "session/Ajuda.h"
#include "session/Main.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestAjuda : public QObject
{
    Q_OBJECT

    // The one address that was opened: host and path.
    static QPair<QString, QString> Aberto(const Sistema &s)
    {
        if (s.shell.abertos.size() != 1) return {};
        const QUrl endereco(s.shell.abertos.constFirst());
        return {endereco.scheme() + u"://"_s + endereco.host(), endereco.path()};
    }

private Q_SLOTS:
    void os_topicos_abrem_a_mesma_pagina_em_qualquer_lingua()
    {
        QStringList enderecos;
        for (const QString &idioma : {u"PortuguesPT"_s, u"FrancesFR"_s, u""_s}) {
            Sistema s;
            s.geral.IdiomaActual = idioma;
            ajuda::TopicosAjuda(s.geral, s.shell);
            QCOMPARE(Aberto(s).second, u"/morvex/ajuda.php"_s);
            enderecos << s.shell.abertos;
        }
        QCOMPARE(enderecos.removeDuplicates(), 2);
        QVERIFY(enderecos.constFirst().endsWith(u"/morvex/ajuda.php"_s)); // the language's code stays behind
    }

    void sugerir_abre_a_pagina_das_sugestoes_no_mesmo_servidor()
    {
        Sistema s;
        ajuda::Sugerir(s.shell);
        const auto sugestoes = Aberto(s);
        QCOMPARE(sugestoes.second, u"/sugerir.htm"_s);
        s.shell.abertos.clear();
        ajuda::TopicosAjuda(s.geral, s.shell);
        QCOMPARE(sugestoes.first, Aberto(s).first);
        QVERIFY(sugestoes.first.startsWith(u"http://"_s) && sugestoes.first.size() > 8);
    }

    void leiame_abre_o_ficheiro_da_pasta_do_programa()
    {
        Sistema s;
        ajuda::Leiame(s.geral, s.shell);
        QCOMPARE(s.shell.abertos, QStringList{s.Ficheiro(u"leiame.txt"_s)});
        QVERIFY(QFile::exists(s.shell.abertos.constFirst()));
    }

    void as_entradas_do_menu_e_o_botao_chamam_as_suas()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        for (QAction *entrada : {janela.TopicosAjuda, janela.ajuda, janela.Sugerir, janela.Leiame})
            entrada->trigger();
        QCOMPARE(s.shell.abertos.size(), 4);
        QVERIFY(s.shell.abertos[0].endsWith(u"/morvex/ajuda.php"_s));
        QCOMPARE(s.shell.abertos[1], s.shell.abertos[0]);
        QVERIFY(s.shell.abertos[2].endsWith(u"/sugerir.htm"_s));
        QVERIFY(s.shell.abertos[3].endsWith(u"leiame.txt"_s));
    }
};

MORVEX_TESTE(TestAjuda)
#include "test_Ajuda.moc"
