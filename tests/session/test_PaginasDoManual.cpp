// The manual as it is installed: the pages of all languages, their links and pictures, and the forms' pages.
#include "data/Idiomas.h"
#include "session/Ajuda.h"
#include "testlib/Teste.h"

#include <QDirIterator>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace
{
QString Manual() { return qEnvironmentVariable("MORVEX_ENVIADOS") + u"/manual"_s; }
QStringList Linguas()
{
    QStringList codigos;
    for (const Idioma &idioma : idiomas::todos)
        codigos << QString::fromUtf16(idioma.ajuda);
    return codigos;
}
QStringList Paginas(const QString &lingua)
{
    return QDir(Manual() + u'/' + lingua).entryList({u"*.html"_s}, QDir::Files, QDir::Name);
}

// What a page holds, read as the document that a browser reads.
struct Pagina {
    explicit Pagina(const QString &caminho)
    {
        QFile ficheiro(caminho);
        if (!ficheiro.open(QIODevice::ReadOnly)) return;
        QXmlStreamReader leitor(&ficheiro);
        while (!leitor.atEnd())
            if (leitor.readNext() == QXmlStreamReader::StartElement)
                Comecar(leitor.name().toString(), leitor.attributes());
            else if (leitor.isCharacters())
                texto += leitor.text();
        erro = leitor.errorString();
    }
    void Comecar(const QString &elemento, const QXmlStreamAttributes &atributos)
    {
        const auto valor = [&](const QString &nome) { return atributos.value(nome).toString(); };
        if (elemento == u"html"_s) lingua = valor(u"lang"_s);
        if (elemento == u"a"_s || elemento == u"link"_s) alvos << valor(u"href"_s);
        if (elemento == u"img"_s) {
            alvos << valor(u"src"_s);
            alternativas << valor(u"alt"_s);
        }
        if (QStringList{u"h1"_s, u"h2"_s, u"h3"_s, u"img"_s, u"ol"_s, u"ul"_s}.contains(elemento))
            estrutura << elemento;
        paragrafos += elemento == u"p"_s;
    }

    QString erro, lingua, texto;
    QStringList alvos, alternativas, estrutura;
    int paragrafos = 0;
};

template<typename Ver> void Em_Cada_Pagina(const Ver &ver)
{
    for (const QString &lingua : Linguas())
        for (const QString &nome : Paginas(lingua))
            ver(lingua, nome, Pagina(Manual() + u'/' + lingua + u'/' + nome));
}
} // namespace

class TestPaginasDoManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ha_as_mesmas_paginas_em_todas_as_linguas()
    {
        const QStringList paginas = Paginas(u"pt"_s);
        QCOMPARE(paginas.size(), 13); // the contents, eleven subjects, and where to write
        for (const QString &lingua : Linguas())
            QCOMPARE(Paginas(lingua), paginas);
    }

    void cada_pagina_tem_os_mesmos_titulos_listas_e_imagens_em_todas_as_linguas()
    {
        Em_Cada_Pagina([](const QString &lingua, const QString &nome, const Pagina &pagina) {
            const Pagina original(Manual() + u"/pt/"_s + nome);
            QVERIFY2(original.estrutura.contains(u"h1"_s), qPrintable(nome));
            QVERIFY2(pagina.estrutura == original.estrutura, qPrintable(lingua + nome));
            QVERIFY2(pagina.paragrafos == original.paragrafos, qPrintable(lingua + nome));
        });
    }

    void cada_pagina_le_se_sem_erros_e_diz_a_sua_lingua()
    {
        QStringList ditas;
        Em_Cada_Pagina([&](const QString &lingua, const QString &nome, const Pagina &pagina) {
            QVERIFY2(pagina.erro.isEmpty(), qPrintable(lingua + nome + pagina.erro));
            ditas << pagina.lingua;
        });
        ditas.removeDuplicates();
        QCOMPARE(ditas,
                 (QStringList{u"pt-PT"_s, u"pt-BR"_s, u"en-GB"_s, u"es"_s, u"it"_s, u"fr"_s, u"de"_s}));
    }

    void cada_ligacao_e_cada_imagem_existe()
    {
        int imagens = 0;
        Em_Cada_Pagina([&](const QString &lingua, const QString &nome, const Pagina &pagina) {
            QVERIFY2(pagina.alvos.size() > 12, qPrintable(lingua + nome)); // the list of all pages at least
            for (const QString &alvo : pagina.alvos)
                QVERIFY2(QFile::exists(Manual() + u'/' + lingua + u'/' + alvo),
                         qPrintable(lingua + nome + alvo));
            imagens += static_cast<int>(pagina.alternativas.size());
        });
        QVERIFY(imagens >= 7 * 6);
    }

    void cada_imagem_e_da_lingua_da_pagina_e_tem_quem_a_descreva()
    {
        Em_Cada_Pagina([](const QString &lingua, const QString &nome, const Pagina &pagina) {
            for (const QString &descricao : pagina.alternativas)
                QVERIFY2(descricao.size() > 10, qPrintable(lingua + nome));
            for (const QString &alvo : pagina.alvos)
                if (alvo.endsWith(u".png"_s))
                    QVERIFY2(alvo.startsWith(u"../imagens/%1/"_s.arg(lingua)),
                             qPrintable(lingua + nome + alvo));
        });
    }

    void cada_imagem_abre_e_aparece_numa_pagina()
    {
        QStringList mostradas;
        Em_Cada_Pagina([&](const QString &lingua, const QString &, const Pagina &pagina) {
            for (const QString &alvo : pagina.alvos)
                mostradas << QDir::cleanPath(Manual() + u'/' + lingua + u'/' + alvo);
        });
        int imagens = 0;
        for (QDirIterator i(Manual() + u"/imagens"_s, QDir::Files, QDirIterator::Subdirectories);
             i.hasNext();) {
            const QString imagem = i.next();
            QVERIFY2(mostradas.contains(imagem), qPrintable(imagem));
            QVERIFY2(QImage(imagem).width() > 100, qPrintable(imagem));
            ++imagens;
        }
        QVERIFY(imagens >= 7 * 6);
    }

    void nenhuma_marca_fica_por_traduzir()
    {
        Em_Cada_Pagina([](const QString &lingua, const QString &nome, const Pagina &pagina) {
            for (const QString &marca : {u"{"_s, u"}"_s, u"**"_s, u"]("_s, u"&"_s})
                QVERIFY2(!pagina.texto.contains(marca), qPrintable(lingua + nome + marca));
        });
    }

    void ha_pelo_menos_dez_perguntas()
    {
        for (const QString &lingua : Linguas()) {
            const Pagina perguntas(Manual() + u'/' + lingua + u"/perguntas.html"_s);
            QVERIFY2(perguntas.estrutura.count(u"h2"_s) >= 10, qPrintable(lingua));
        }
    }

    void a_pagina_dos_postos_mostra_um_endereco_e_diz_onde_le_quem_administra()
    {
        for (const QString &lingua : Linguas()) {
            const Pagina postos(Manual() + u'/' + lingua + u"/varios-postos.html"_s);
            for (const QString &palavra : {u"postgresql://"_s, u"office.md"_s})
                QVERIFY2(postos.texto.contains(palavra), qPrintable(lingua + palavra));
            const Pagina perguntas(Manual() + u'/' + lingua + u"/perguntas.html"_s);
            QVERIFY2(perguntas.alvos.count(u"varios-postos.html"_s) == 3,
                     qPrintable(lingua)); // in the list, and the page before
        }
    }

    void cada_formulario_tem_uma_pagina_que_existe()
    {
        int formularios = 0;
        for (QDirIterator i(QStringLiteral(MORVEX_FORMULARIOS), {u"frm*.ui"_s, u"Main.ui"_s}, QDir::Files,
                            QDirIterator::Subdirectories);
             i.hasNext(); ++formularios) {
            const QString nome = QFileInfo(i.next()).baseName();
            const QString pagina = ajuda::PaginaDoFormulario(nome);
            QVERIFY2(!pagina.isEmpty(), qPrintable(nome));
            QVERIFY2(Paginas(u"pt"_s).contains(pagina + u".html"_s), qPrintable(nome + pagina));
        }
        QVERIFY(formularios > 25);
    }
};

MORVEX_TESTE(TestPaginasDoManual)
#include "test_PaginasDoManual.moc"
