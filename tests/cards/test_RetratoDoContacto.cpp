// A contact in words, as the import shows it.
#include "cards/RetratoDoContacto.h"
#include "cards/RotulosDoCartao.h"
#include "data/Idiomas.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QTextBlock>
#include <QTextEdit>

using namespace Qt::StringLiterals;

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
};

MORVEX_TESTE(TestRetratoDoContacto)
#include "test_RetratoDoContacto.moc"
