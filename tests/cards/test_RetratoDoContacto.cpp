// A contact in words, as the import shows it.
#include "cards/RetratoDoContacto.h"
#include "cards/RotulosDoCartao.h"
#include "data/Idiomas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QBuffer>
#include <QTextBlock>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace
{
// Red all over.
QByteArray Imagem(QSize tamanho)
{
    QImage imagem(tamanho, QImage::Format_RGB32);
    imagem.fill(Qt::red);
    QByteArray bytes;
    QBuffer ficheiro(&bytes);
    if (!ficheiro.open(QIODevice::WriteOnly) || !imagem.save(&ficheiro, "PNG")) qFatal("no picture to test with");
    return bytes;
}

// The pictures that stand in the first line.
QList<QImage> Imagens(const QTextEdit &campo)
{
    QList<QImage> todas;
    const QTextBlock linha = campo.document()->firstBlock();
    for (auto parte = linha.begin(); parte != linha.end(); ++parte) {
        const QTextImageFormat formato = parte.fragment().charFormat().toImageFormat();
        if (formato.isValid())
            todas << campo.document()->resource(QTextDocument::ImageResource, formato.name()).value<QImage>();
    }
    return todas;
}
} // namespace

class TestRetratoDoContacto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_coluna_tem_o_rotulo_da_sua_caixa()
    {
        Sistema s;
        s.geral.IdiomaActual = u"AlemaoDE"_s;
        constexpr std::pair<Coluna, qint16> rotulos[]{
            {Coluna::Nome, 27},       {Coluna::Telefone1, 28},  {Coluna::Telefone2, 29},
            {Coluna::Fax, 64},        {Coluna::Telemovel1, 30}, {Coluna::Telemovel2, 31},
            {Coluna::Telemovel3, 32}, {Coluna::Dia, 38},        {Coluna::Email1, 304},
            {Coluna::Email2, 304},    {Coluna::Website, 34},    {Coluna::Morada, 36},
            {Coluna::Obs, 37}};
        for (const auto &[coluna, texto] : rotulos) {
            ColunasDoContacto colunas;
            colunas[coluna] = u"valor"_s;
            QTextEdit campo;
            RetratoDoContacto(s.geral, campo).Contacto(colunas);
            QCOMPARE(campo.toPlainText(), s.Texto(texto).remove(u'&') + u": valor\n"_s);
        }
    }

    void os_rotulos_ha_os_em_todas_as_linguas_do_programa()
    {
        QStringList do_programa;
        for (const Idioma &idioma : idiomas::todos)
            do_programa << QString::fromLatin1(idioma.coluna);
        QCOMPARE(rotulos_do_cartao::Idiomas(), do_programa);
    }

    void um_aniversario_e_uma_so_linha()
    {
        Sistema s;
        ColunasDoContacto colunas;
        colunas[Coluna::Dia] = u"4"_s;
        colunas[Coluna::Mes] = u"3"_s;
        QTextEdit campo;
        RetratoDoContacto retrato(s.geral, campo);
        retrato.Contacto(colunas);
        QVERIFY(campo.toPlainText().endsWith(u": 4-3\n"_s));
        retrato.Limpar();
        colunas[Coluna::Ano] = u"1975"_s;
        retrato.Contacto(colunas);
        QVERIFY(campo.toPlainText().endsWith(u": 4-3-1975\n"_s));
        QCOMPARE(campo.document()->blockCount(), 2); // the line, and where the next one would stand
    }

    void so_o_que_muda_vem_a_negro()
    {
        Sistema s;
        ColunasDoContacto colunas;
        colunas[Coluna::Nome] = u"Ana"_s;
        colunas[Coluna::Fax] = u"211"_s;
        QTextEdit campo;
        RetratoDoContacto(s.geral, campo).Contacto(colunas, {Coluna::Fax});
        const auto grossura = [&](const QString &texto) {
            return campo.document()->find(texto).charFormat().fontWeight();
        };
        QCOMPARE(grossura(u"Ana"_s), int{QFont::Normal});
        QCOMPARE(grossura(u"211"_s), int{QFont::Bold});
    }

    void os_dois_pontos_franceses_tem_um_branco_antes()
    {
        Sistema s;
        s.geral.IdiomaActual = u"FrancesFR"_s;
        QTextEdit campo;
        RetratoDoContacto(s.geral, campo).Linha(u"Nom"_s, u"Ana"_s);
        QCOMPARE(campo.document()->toRawText(), u"Nom\u00a0: Ana"_s + QChar::ParagraphSeparator);
    }

    void um_titulo_vem_sublinhado_e_longe_do_que_esta_antes()
    {
        Sistema s;
        QTextEdit campo;
        RetratoDoContacto retrato(s.geral, campo);
        retrato.Titulo(u"Um"_s);
        retrato.Texto(u"texto"_s);
        retrato.Titulo(u"Dois"_s);
        QCOMPARE(campo.toPlainText(), u"Um\ntexto\n\nDois\n"_s);
        for (const auto &[palavra, sublinhada] : {std::pair(u"Um"_s, true), {u"texto"_s, false}, {u"Dois"_s, true}})
            QCOMPARE(campo.document()->find(palavra).charFormat().fontUnderline(), sublinhada);
        retrato.Acabar();
        QCOMPARE(campo.textCursor().position(), 0);
        retrato.Limpar();
        retrato.Texto(u"outro"_s);
        QCOMPARE(campo.toPlainText(), u"outro\n"_s);
        QVERIFY(!campo.document()->isUndoRedoEnabled()); // nobody writes in it
    }

    void uma_fotografia_grande_encolhe_com_as_suas_proporcoes_e_uma_pequena_fica_como_e_data()
    {
        QTest::addColumn<QSize>("natural");
        QTest::addColumn<QSize>("a_vista");
        QTest::newRow("pequena") << QSize(40, 20) << QSize(40, 20);
        QTest::newRow("a maior que fica como e") << QSize(96, 96) << QSize(96, 96);
        QTest::newRow("larga") << QSize(400, 200) << QSize(96, 48);
        QTest::newRow("alta") << QSize(50, 192) << QSize(25, 96);
        QTest::newRow("um risco deitado") << QSize(500, 1) << QSize(96, 1);
        QTest::newRow("um risco de pe") << QSize(1, 500) << QSize(1, 96);
    }
    void uma_fotografia_grande_encolhe_com_as_suas_proporcoes_e_uma_pequena_fica_como_e()
    {
        QFETCH(QSize, natural);
        QFETCH(QSize, a_vista);
        Sistema s;
        QTextEdit campo;
        RetratoDoContacto(s.geral, campo).Fotografia(Imagem(natural));
        const QList<QImage> imagens = Imagens(campo);
        QCOMPARE(imagens.size(), 1);
        QCOMPARE(imagens.constFirst().size(), a_vista);
        QCOMPARE(imagens.constFirst().pixelColor(0, 0), QColor(Qt::red));
    }

    void o_que_se_diz_do_contacto_vem_por_baixo_da_fotografia()
    {
        Sistema s;
        QTextEdit campo;
        RetratoDoContacto retrato(s.geral, campo);
        retrato.Fotografia(Imagem({40, 20}));
        retrato.Texto(u"Ana"_s);
        const QTextDocument &documento = *campo.document();
        QCOMPARE(documento.firstBlock().text(), QString(QChar::ObjectReplacementCharacter));
        QCOMPARE(documento.firstBlock().next().text(), u"Ana"_s);
    }

    void do_que_nao_e_fotografia_nao_fica_sinal_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nada") << QByteArray();
        QTest::newRow("texto") << QByteArray("nada");
        QTest::newRow("cortada logo depois das suas medidas") << Imagem({400, 400}).first(40);
    }
    void do_que_nao_e_fotografia_nao_fica_sinal()
    {
        QFETCH(QByteArray, bytes);
        Sistema s;
        QTextEdit campo;
        RetratoDoContacto retrato(s.geral, campo);
        retrato.Fotografia(bytes);
        retrato.Texto(u"Ana"_s);
        QCOMPARE(campo.toPlainText(), u"Ana\n"_s);
    }
};

MORVEX_TESTE(TestRetratoDoContacto)
#include "test_RetratoDoContacto.moc"
