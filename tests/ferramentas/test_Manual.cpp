// The maker of the manual: what it puts into a page, and what it refuses.
#include "data/Idiomas.h"
#include "ferramentas/Manual.h"
#include "platform/Failure.h"
#include "testlib/DiscoCheio.h"
#include "testlib/Teste.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
constexpr int numero_de_paginas = 13;

struct Oficina {
    Oficina()
    {
        QDir(pasta.path()).mkpath(u"fonte/imagens"_s);
        Escrever(u"fonte/imagens/um.png"_s, "png");
        Escrever(u"fonte/manual.css"_s, "p {}");
        Escrever(u"textos.tsv"_s,
                 "ID\tUso\tPortuguesPT\tPortuguesBR\tInglesUK\tEspanholES\tItalianoIT\tFrancesFR\tAlemaoDE\n"
                 "7\t\t&Ficheiro\t&Arquivo\t&File\t&Archivo\t&File\t&Fichier :\t&Datei\n"
                 "8\t\t&Seguinte *1* _<b>\tx\tx\tx\tx\tx\tx\n9\t\tC&or:\tx\tx\tx\tx\tx\tx\n");
        for (const Idioma &idioma : idiomas::todos)
            Fonte(QString::fromUtf16(idioma.ajuda), u"Texto"_s);
    }
    // Thirteen pages, the text on the second one.
    void Fonte(const QString &lingua, const QString &texto, int paginas = numero_de_paginas) const
    {
        QString tudo;
        for (int i = 0; i < paginas; ++i)
            tudo += u"# Título %1\n%2\n\n"_s.arg(i).arg(i == 1 ? texto : u"Outro"_s);
        Escrever(u"fonte/%1.md"_s.arg(lingua), tudo.toUtf8());
    }
    void Escrever(const QString &nome, const QByteArray &bytes) const
    {
        QFile ficheiro(Em(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size()) qFatal("no file");
    }
    // The words of the failure; empty where all went well.
    QString Criar(const QString &onde = u"manual"_s) const
    {
        try {
            manual::Criar(Em(u"fonte"_s), Em(u"textos.tsv"_s), Em(onde));
        } catch (const Failure &falha) {
            return falha.description();
        }
        return {};
    }
    QString Ler(const QString &pagina) const
    {
        QFile ficheiro(Em(u"manual/"_s + pagina));
        return ficheiro.open(QIODevice::ReadOnly) ? QString::fromUtf8(ficheiro.readAll()) : QString();
    }
    // What making it tells, and the second page in Portuguese, with that text.
    QString Com(const QString &texto) const
    {
        Fonte(u"pt"_s, texto);
        const QString falha = Criar();
        return falha + Ler(u"pt/primeiros-passos.html"_s);
    }
    QString Em(const QString &nome) const { return pasta.filePath(nome); }

    QTemporaryDir pasta;
};
} // namespace

class TestManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_numero_da_a_legenda_da_lingua_sem_a_marca_da_tecla()
    {
        const Oficina o;
        for (const QString &lingua : {u"pt"_s, u"de"_s, u"fr"_s})
            o.Fonte(lingua, u"Abra {7}."_s);
        QCOMPARE(o.Criar(), QString());
        QVERIFY(o.Ler(u"pt/primeiros-passos.html"_s).contains(u"Abra <strong>Ficheiro</strong>."_s));
        QVERIFY(o.Ler(u"de/primeiros-passos.html"_s).contains(u"<strong>Datei</strong>"_s));
        QVERIFY(o.Ler(u"fr/primeiros-passos.html"_s).contains(u"<strong>Fichier</strong>"_s));
    }

    void os_sinais_de_uma_legenda_ficam_como_estao()
    {
        QVERIFY(Oficina()
                    .Com(u"Clique em {8}, depois {9}:"_s)
                    .contains(u"<strong>Seguinte *1* _&lt;b&gt;</strong>, depois <strong>Cor</strong>:"_s));
    }

    void o_nome_de_uma_pagina_da_a_ligacao_com_o_titulo_dela()
    {
        QVERIFY(Oficina()
                    .Com(u"Veja {contactos}."_s)
                    .contains(u"Veja <a href=\"contactos.html\">Título 2</a>."_s));
    }

    void um_numero_ou_uma_pagina_desconhecida_e_recusada()
    {
        QCOMPARE(Oficina().Com(u"Abra {77}."_s), u"pt.md: there is no text or page {77}"_s);
        QCOMPARE(Oficina().Com(u"{grupo}"_s), u"pt.md: there is no text or page {grupo}"_s);
    }

    void uma_imagem_que_nao_existe_e_recusada()
    {
        QVERIFY(Oficina()
                    .Com(u"![Um](imagens/dois.png)"_s)
                    .startsWith(u"pt.md: there is no picture imagens/dois.png"_s));
        QVERIFY(Oficina()
                    .Com(u"![Um](imagens/um.png)"_s)
                    .contains(u"<img src=\"../imagens/um.png\" alt=\"Um\""_s));
    }

    void uma_pagina_a_mais_ou_a_menos_e_recusada()
    {
        const Oficina o;
        for (const int paginas : {numero_de_paginas - 1, numero_de_paginas + 1}) {
            o.Fonte(u"it"_s, u"Testo"_s, paginas);
            QCOMPARE(o.Criar(), u"it.md: %1 pages instead of 13"_s.arg(paginas));
        }
    }

    void uma_lingua_que_falta_e_recusada()
    {
        const Oficina o;
        QFile::remove(o.Em(u"fonte/es.md"_s));
        QCOMPARE(o.Criar(), u"No such file: "_s + o.Em(u"fonte/es.md"_s));
    }

    void textos_sem_uma_das_linguas_sao_recusados()
    {
        const Oficina o;
        o.Escrever(u"textos.tsv"_s, "ID\tUso\tPortuguesPT\tPortuguesBR\n7\t\t&Ficheiro\t&Arquivo\n");
        QCOMPARE(o.Criar(), u"The texts have no column InglesUK"_s);
    }

    void um_lugar_onde_nada_se_escreve_e_dito()
    {
        const Oficina o;
        o.Escrever(u"cheio"_s, "file");
        QCOMPARE(o.Criar(u"cheio/manual"_s), u"Cannot write "_s + o.Em(u"cheio/manual.novo/pt/index.html"_s));
    }

    void um_disco_cheio_e_dito_e_deixa_o_antigo_como_estava()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no limit for the size of a file");
        const Oficina o;
        QVERIFY(o.Com(u"Antes"_s).contains(u"Antes"_s));
        o.Fonte(u"pt"_s, u"Depois"_s);
        {
            const DiscoCheio cheio(100);
            QCOMPARE(o.Criar(), u"Cannot write "_s + o.Em(u"manual.novo/pt/index.html"_s));
        }
        QVERIFY(o.Ler(u"pt/primeiros-passos.html"_s).contains(u"Antes"_s));
    }

    void uma_pagina_inteira()
    {
        const QString lista =
            u"<li><a href=\"primeiros-passos.html\" aria-current=\"page\">Título 1</a></li>\n"
            "<li><a href=\"contactos.html\">Título 2</a></li>\n"
            "<li><a href=\"grupos-e-utilizadores.html\">Título 3</a></li>\n"
            "<li><a href=\"lembretes.html\">Título 4</a></li>\n"
            "<li><a href=\"memos.html\">Título 5</a></li>\n"
            "<li><a href=\"correio-e-messenger.html\">Título 6</a></li>\n"
            "<li><a href=\"impressao.html\">Título 7</a></li>\n"
            "<li><a href=\"importar-e-exportar.html\">Título 8</a></li>\n"
            "<li><a href=\"copia-de-seguranca.html\">Título 9</a></li>\n"
            "<li><a href=\"varios-postos.html\">Título 10</a></li>\n"
            "<li><a href=\"perguntas.html\">Título 11</a></li>\n"
            "<li><a href=\"sugerir.html\">Título 12</a></li>\n"_s;
        QCOMPARE(Oficina().Com(u"Abra {7} e {9}, ou {contactos}.\n\n![Um](imagens/um.png)\n\nFim."_s),
                 u"<!DOCTYPE html>\n<html lang=\"pt-PT\">\n<head>\n<meta charset=\"utf-8\" />\n"
                 "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\" />\n"
                 "<meta name=\"color-scheme\" content=\"light dark\" />\n"
                 "<title>Título 1 – Título 0</title>\n"
                 "<link rel=\"stylesheet\" href=\"../manual.css\" />\n</head>\n<body>\n"
                 "<header><a href=\"index.html\">Título 0</a></header>\n<main>\n<h1>Título 1</h1>\n"
                 "<p>Abra <strong>Ficheiro</strong> e <strong>Cor</strong>, "
                 "ou <a href=\"contactos.html\">Título 2</a>.</p>\n"
                 "<p><img src=\"../imagens/um.png\" alt=\"Um\" /></p>\n<p>Fim.</p>\n</main>\n"
                 "<nav aria-label=\"Índice\">\n<ol>\n"_s +
                     lista +
                     u"</ol>\n</nav>\n<footer>\n<a rel=\"prev\" href=\"index.html\">← Título 0</a>\n"
                     "<a rel=\"next\" href=\"contactos.html\">Título 2 →</a>\n"
                     "</footer>\n</body>\n</html>\n"_s);
    }

    void a_primeira_pagina_nao_tem_anterior_nem_a_ultima_seguinte()
    {
        const Oficina o;
        QCOMPARE(o.Criar(), QString());
        const QString primeira = o.Ler(u"pt/index.html"_s);
        QVERIFY(primeira.contains(u"<title>Título 0</title>"_s));
        QVERIFY(primeira.contains(u"<h1>Título 0</h1>"_s));
        QVERIFY(!primeira.contains(u"aria-current"_s) && !primeira.contains(u"rel=\"prev\""_s));
        QVERIFY(primeira.contains(u"<a rel=\"next\" href=\"primeiros-passos.html\">Título 1 →</a>"_s));
        const QString ultima = o.Ler(u"pt/sugerir.html"_s);
        QVERIFY(ultima.contains(u"<a rel=\"prev\" href=\"perguntas.html\">← Título 11</a>"_s));
        QVERIFY(!ultima.contains(u"rel=\"next\""_s));
    }

    void cada_lingua_diz_o_seu_nome_e_tem_a_sua_palavra_para_a_lista()
    {
        const Oficina o;
        QCOMPARE(o.Criar(), QString());
        const QStringList casos[]{{u"pt"_s, u"pt-PT"_s, u"Índice"_s},   {u"br"_s, u"pt-BR"_s, u"Índice"_s},
                                  {u"uk"_s, u"en-GB"_s, u"Contents"_s}, {u"es"_s, u"es"_s, u"Índice"_s},
                                  {u"it"_s, u"it"_s, u"Indice"_s},      {u"fr"_s, u"fr"_s, u"Sommaire"_s},
                                  {u"de"_s, u"de"_s, u"Inhalt"_s}};
        for (const QStringList &caso : casos) {
            const QString pagina = o.Ler(caso[0] + u"/index.html"_s);
            QVERIFY2(pagina.contains(u"<html lang=\"%1\">"_s.arg(caso[1])), qPrintable(caso[0]));
            QVERIFY2(pagina.contains(u"<nav aria-label=\"%1\">"_s.arg(caso[2])), qPrintable(caso[0]));
        }
    }

    void o_que_uma_vez_interrompida_deixou_nao_entra_no_manual()
    {
        const Oficina o;
        QDir(o.pasta.path()).mkpath(u"manual.novo/pt"_s);
        o.Escrever(u"manual.novo/pt/velha.html"_s, "velha");
        QCOMPARE(o.Criar(), QString());
        QVERIFY(!QFile::exists(o.Em(u"manual/pt/velha.html"_s)) && !QFile::exists(o.Em(u"manual.novo"_s)));
    }

    void um_manual_novo_toma_o_lugar_do_antigo_por_inteiro()
    {
        const Oficina o;
        QCOMPARE(o.Criar(), QString());
        o.Escrever(u"manual/pt/velha.html"_s, "velha");
        QCOMPARE(o.Criar(), QString());
        QVERIFY(!QFile::exists(o.Em(u"manual/pt/velha.html"_s)));
        QCOMPARE(o.Ler(u"manual.css"_s), u"p {}"_s);
        QCOMPARE(o.Ler(u"imagens/um.png"_s), u"png"_s);
    }

    void uma_falha_deixa_o_antigo_como_estava()
    {
        const Oficina o;
        QVERIFY(o.Com(u"Antes"_s).contains(u"Antes"_s));
        QVERIFY(o.Com(u"Depois {77}"_s).contains(u"Antes"_s));
        QCOMPARE(QDir(o.pasta.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 (QStringList{u"fonte"_s, u"manual"_s}));
    }
};

MORVEX_TESTE(TestManual)
#include "test_Manual.moc"
