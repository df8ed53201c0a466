// The maker of the manual: what it puts into a page, and what it refuses.
#include "data/Idiomas.h"
#include "ferramentas/Manual.h"
#include "platform/Failure.h"
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
            tudo += u"# Título %1\n\n%2\n\n"_s.arg(i).arg(i == 1 ? texto : u"Outro"_s);
        Escrever(u"fonte/%1.md"_s.arg(lingua), tudo.toUtf8());
    }
    void Escrever(const QString &nome, const QByteArray &bytes) const
    {
        QFile ficheiro(Em(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size()) qFatal("no file");
    }
    // The words of the failure; empty where all went well.
    QString Criar() const
    {
        try {
            manual::Criar(Em(u"fonte"_s), Em(u"textos.tsv"_s), Em(u"manual"_s));
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

    void um_numero_desconhecido_e_recusado()
    {
        const QString falha = Oficina().Com(u"Abra {77}."_s);
        QVERIFY2(falha.contains(u"pt.md"_s) && falha.contains(u"{77}"_s), qPrintable(falha));
    }

    void uma_pagina_desconhecida_e_recusada() { QVERIFY(Oficina().Com(u"{grupo}"_s).contains(u"{grupo}"_s)); }

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
            QVERIFY2(o.Criar().startsWith(u"it.md: %1 pages"_s.arg(paginas)), qPrintable(o.Criar()));
        }
    }

    void uma_lingua_que_falta_e_recusada()
    {
        const Oficina o;
        QFile::remove(o.Em(u"fonte/es.md"_s));
        QVERIFY(o.Criar().contains(u"es.md"_s));
    }

    void cada_pagina_mostra_o_seu_lugar_na_lista_e_as_vizinhas()
    {
        const QString pagina = Oficina().Com(u"Texto"_s);
        QVERIFY(pagina.contains(u"<a href=\"primeiros-passos.html\" aria-current=\"page\">Título 1</a>"_s));
        QCOMPARE(pagina.count(u"aria-current"_s), 1);
        QVERIFY(pagina.contains(u"<a rel=\"prev\" href=\"index.html\">← Título 0</a>"_s));
        QVERIFY(pagina.contains(u"<a rel=\"next\" href=\"contactos.html\">Título 2 →</a>"_s));
        QVERIFY(pagina.contains(u"<title>Título 1 – Título 0</title>"_s));
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
