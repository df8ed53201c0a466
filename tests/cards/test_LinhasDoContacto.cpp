// What is said of a contact, line by line: the words before it, and what of the columns stands behind them.
#include "cards/LinhasDoContacto.h"

#include "cards/RotulosDoCartao.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using L = Linha;

namespace
{
QStringList Aniversario(Sistema &s, const QString &dia, const QString &mes, const QString &ano)
{
    ColunasDoContacto colunas;
    colunas[Coluna::Dia] = dia;
    colunas[Coluna::Mes] = mes;
    colunas[Coluna::Ano] = ano;
    return linhas_do_contacto::Valores(L::Aniversario, colunas, s.geral);
}
} // namespace

class TestLinhasDoContacto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_linha_tem_a_sua_palavra_na_lingua_escolhida()
    {
        Sistema s;
        s.geral.IdiomaActual = u"AlemaoDE"_s;
        const auto rotulo = [](Rotulo qual) { return rotulos_do_cartao::Em(qual, u"AlemaoDE"_s); };
        const QStringList esperadas{s.Texto(27),
                                    rotulo(Rotulo::Telemovel),
                                    rotulo(Rotulo::Telefone),
                                    rotulo(Rotulo::Fax),
                                    rotulo(Rotulo::Email),
                                    rotulo(Rotulo::Website),
                                    rotulo(Rotulo::Morada),
                                    rotulo(Rotulo::Aniversario),
                                    s.Texto(37),
                                    rotulo(Rotulo::Fotografia),
                                    s.Texto(42).remove(u':').trimmed()};
        QStringList ditas;
        for (const L linha : linhas_do_contacto::todas)
            ditas << linhas_do_contacto::Rotulo(linha, s.geral);
        QCOMPARE(ditas, esperadas);
        s.geral.IdiomaActual.clear();
        for (const L linha : linhas_do_contacto::todas)
            QCOMPARE(linhas_do_contacto::Rotulo(linha, s.geral), QString());
    }

    void cada_linha_diz_as_suas_colunas_pela_ordem()
    {
        Sistema s;
        ColunasDoContacto colunas;
        for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
            colunas.valores[i] = QString::number(100 + i);
        const std::pair<L, QStringList> esperados[]{{L::Nome, {u"100"_s}},
                                                    {L::Telefone, {u"101"_s, u"102"_s}},
                                                    {L::Fax, {u"103"_s}},
                                                    {L::Telemovel, {u"104"_s, u"105"_s, u"106"_s}},
                                                    {L::Aniversario, {u"107 108 109"_s}},
                                                    {L::Email, {u"110"_s, u"111"_s}},
                                                    {L::Website, {u"112"_s}},
                                                    {L::Morada, {u"113"_s}},
                                                    {L::Obs, {u"114"_s}},
                                                    {L::Fotografia, {u"115"_s}},
                                                    {L::Grupo, {u"116"_s}}};
        for (const auto &[linha, valores] : esperados)
            QCOMPARE(linhas_do_contacto::Valores(linha, colunas, s.geral), valores);
        for (const L linha : linhas_do_contacto::todas)
            QCOMPARE(linhas_do_contacto::Valores(linha, {}, s.geral), QStringList());
    }

    void um_valor_de_varias_linhas_diz_se_sem_as_vazias()
    {
        Sistema s;
        ColunasDoContacto colunas;
        colunas[Coluna::Morada] = u" Rua A \r\n\r\n4000 Porto\n"_s;
        QCOMPARE(linhas_do_contacto::Valores(L::Morada, colunas, s.geral),
                 (QStringList{u"Rua A"_s, u"4000 Porto"_s}));
    }

    void um_mes_diz_se_pelo_nome_e_o_que_nao_e_mes_como_esta()
    {
        Sistema s;
        for (int mes = 1; mes <= 12; ++mes)
            QCOMPARE(Aniversario(s, u"4"_s, QString::number(mes), u"1975"_s),
                     QStringList{u"4 "_s + s.Texto(13 + mes) + u" 1975"_s});
        for (const auto &mes : {u"0"_s, u"13"_s, u"-1"_s, u"Maio"_s})
            QCOMPARE(Aniversario(s, u"4"_s, mes, QString()), QStringList{u"4 "_s + mes});
        QCOMPARE(Aniversario(s, QString(), QString(), u"1975"_s), QStringList{u"1975"_s});
    }
};

MORVEX_TESTE(TestLinhasDoContacto)
#include "test_LinhasDoContacto.moc"
