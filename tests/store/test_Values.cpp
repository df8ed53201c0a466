// The conversion of loosely typed values to the types of the columns that they meet.
#include "store/Values.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <limits>

using namespace Qt::StringLiterals;
using enum ColumnType;

Q_DECLARE_METATYPE(ColumnType)

class TestValues : public QObject
{
    Q_OBJECT

    static StoreValue Converter(const Value &value, ColumnType type) { return value.convertedTo(type); }

    // A row of a table "text to value"; its name is the text.
    template<class Result> static void Linha(ColumnType type, const QString &text, const Result &result)
    {
        QTest::addRow("%d: \"%s\"", static_cast<int>(type), qUtf8Printable(text)) << type << text << result;
    }

private Q_SLOTS:
    void numero_inteiro_data()
    {
        QTest::addColumn<ColumnType>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("result");
        Linha(Long, u"6"_s, qint64{6});
        Linha(Long, u"  6 "_s, qint64{6});
        Linha(Long, u"\t6\r\n"_s, qint64{6});
        Linha(Long, u"+6"_s, qint64{6});
        Linha(Long, u"-6"_s, qint64{-6});
        Linha(Long, u"007"_s, qint64{7});
        Linha(Long, u"1234567890"_s, qint64{1234567890});
        Linha(Long, u"2147483647"_s, qint64{2147483647});
        Linha(Long, u"-2147483648"_s, qint64{-2147483648});
        Linha(YesNo, u"0"_s, qint64{0});
        Linha(YesNo, u"1"_s, qint64{1});
        Linha(YesNo, u"-1"_s, qint64{1});
        Linha(YesNo, u"2,5"_s, qint64{1});
        Linha(YesNo, u"0.0"_s, qint64{0});
        for (const QString &yes : {u"True"_s, u"TRUE"_s, u"verdadeiro"_s, u"Sim"_s, u" yes "_s})
            Linha(YesNo, yes, qint64{1});
        for (const QString &no : {u"False"_s, u"false"_s, u"Falso"_s, u"Não"_s, u"NÃO"_s, u"No"_s})
            Linha(YesNo, no, qint64{0});
    }
    void numero_inteiro()
    {
        QFETCH(ColumnType, type);
        QFETCH(QString, text);
        QFETCH(qint64, result);
        QCOMPARE(std::get<qint64>(Converter(text, type)), result);
    }

    void numero_com_virgula_ou_ponto_data()
    {
        QTest::addColumn<ColumnType>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("result");
        Linha(Single, u"8,25"_s, 8.25);
        Linha(Single, u"8.25"_s, 8.25);
        Linha(Single, u" -8,25 "_s, -8.25);
        Linha(Single, u"495"_s, 495.0);
        Linha(Single, u",5"_s, 0.5);
        Linha(Single, u"0,1"_s, 0.1); // not 0.10000000149..., which is what 32 bits hold of it
        Linha(Single, u"13,7"_s, 13.7);
        Linha(Single, u"16777217"_s, 16777216.0);
        Linha(Single, u"3.4028234663852886e38"_s, 3.4028235e38); // the largest that 32 bits hold
    }
    void numero_com_virgula_ou_ponto()
    {
        QFETCH(ColumnType, type);
        QFETCH(QString, text);
        QFETCH(double, result);
        QCOMPARE(std::get<double>(Converter(text, type)), result);
    }

    void data_e_hora_data()
    {
        QTest::addColumn<ColumnType>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("result");
        Linha(Date, u"17-05-2004"_s, u"2004-05-17"_s);
        Linha(Date, u"17/05/2004"_s, u"2004-05-17"_s);
        Linha(Date, u"17.05.2004"_s, u"2004-05-17"_s);
        Linha(Date, u"7-5-2004"_s, u"2004-05-07"_s);
        Linha(Date, u"2004-05-17"_s, u"2004-05-17"_s);
        Linha(Date, u"17-05-2004 08:30"_s, u"2004-05-17"_s);
        Linha(Date, u"2004-05-17 08:30:15"_s, u"2004-05-17"_s);
        Linha(Date, u"29-02-2028"_s, u"2028-02-29"_s);
        Linha(Date, u"01-01-0100"_s, u"0100-01-01"_s);
        Linha(Date, u"31-12-9999"_s, u"9999-12-31"_s);
        Linha(Time, u"08:30"_s, u"08:30:00"_s);
        Linha(Time, u"8:30"_s, u"08:30:00"_s);
        Linha(Time, u"23:59:59"_s, u"23:59:59"_s);
        Linha(Time, u"17-05-2004 08:30"_s, u"08:30:00"_s);
        Linha(Time, u"17-05-2004 8:30"_s, u"08:30:00"_s);
        Linha(Text, u""_s, u""_s);
        Linha(Text, u"  blanks stay "_s, u"  blanks stay "_s);
        Linha(Text, u"two\r\nlines"_s, u"two\r\nlines"_s);
        Linha(Pattern, u"%6_"_s, u"%6_"_s);
    }
    void data_e_hora()
    {
        QFETCH(ColumnType, type);
        QFETCH(QString, text);
        QFETCH(QString, result);
        QCOMPARE(std::get<QString>(Converter(text, type)), result);
    }

    void o_que_nao_cabe_na_coluna_e_um_erro_data()
    {
        QTest::addColumn<ColumnType>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("fails");
        for (const ColumnType type : {Long, Single, YesNo, Date, Time})
            for (const QString &text : {u""_s, u"   "_s, u"abc"_s, u"6 7"_s, u"--6"_s, u"nan"_s, u"inf"_s})
                Linha(type, text, true);
        for (const QString &text : {u"6,5"_s, u"6.0"_s, u"2147483648"_s, u"-2147483649"_s, u"0x10"_s,
                                    u"1e3"_s, u"٣"_s, u"+"_s, u"+-6"_s, u"- 6"_s, u"\u00a06"_s, u"6\u00a0"_s})
            Linha(Long, text, true);
        for (const QString &text : {u"1.000,5"_s, u"1,2,3"_s, u","_s, u"1e60"_s})
            Linha(Single, text, true);
        for (const QString &text : {u"Nao"_s, u"Ja"_s, u"verdade"_s})
            Linha(YesNo, text, true);
        for (const QString &text :
             {u"31-04-2004"_s, u"29-02-2027"_s, u"00-05-2004"_s, u"17-13-2004"_s, u"17-05-04"_s,
              u"17-05/2004"_s, u"01-01-0099"_s, u"17-05-2004 25:00"_s, u"17-05-2004 x"_s, u"08:30"_s})
            Linha(Date, text, true);
        for (const QString &text :
             {u"24:00"_s, u"8:60"_s, u"0830"_s, u"8:3"_s, u"08:30:60"_s, u"17-05-2004"_s, u"hoje 08:30"_s})
            Linha(Time, text, true);
    }
    void o_que_nao_cabe_na_coluna_e_um_erro()
    {
        QFETCH(ColumnType, type);
        QFETCH(QString, text);
        VERIFICAR_FALHA(Converter(text, type), Failure::TypeMismatch);
    }

    void nulo_fica_nulo_em_qualquer_coluna()
    {
        for (const ColumnType type : {Text, Long, Single, YesNo, Date, Time, Pattern})
            QVERIFY(std::holds_alternative<std::monostate>(Converter(nullptr, type)));
    }

    void numeros_e_sinais_do_programa_tambem_se_convertem()
    {
        QCOMPARE(std::get<qint64>(Converter(7, Long)), 7);
        QCOMPARE(std::get<QString>(Converter(7, Text)), u"7"_s);
        QCOMPARE(std::get<QString>(Converter(7, Pattern)), u"7"_s);
        QCOMPARE(std::get<double>(Converter(8.25, Single)), 8.25);
        QCOMPARE(std::get<QString>(Converter(8.25, Text)), u"8.25"_s);
        QCOMPARE(std::get<qint64>(Converter(true, YesNo)), 1);
        QCOMPARE(std::get<qint64>(Converter(false, YesNo)), 0);
        QCOMPARE(std::get<qint64>(Converter(true, Long)), -1);
        QCOMPARE(std::get<qint64>(Converter(false, Long)), 0);
        VERIFICAR_FALHA(Converter(8.25, Long), Failure::TypeMismatch);
        VERIFICAR_FALHA(Converter(std::numeric_limits<double>::quiet_NaN(), Single), Failure::TypeMismatch);
    }

    void o_erro_diz_o_texto_que_o_causou_e_o_que_ele_devia_ser()
    {
        const auto said = [](const Value &value, ColumnType type) {
            return teste::Falha_Dita([&] { Converter(value, type); });
        };
        const auto noneOf = [](const char *what) {
            return QStringList{u"Value"_s, u"\"amanhã\" is no %1"_s.arg(QLatin1String(what))};
        };
        QCOMPARE(said(u"amanhã"_s, Long), noneOf("whole number of 32 bits"));
        QCOMPARE(said(u"amanhã"_s, Single), noneOf("number of 32 bits"));
        QCOMPARE(said(u"amanhã"_s, YesNo), noneOf("yes or no"));
        QCOMPARE(said(u"amanhã"_s, Date), noneOf("date"));
        QCOMPARE(said(u"amanhã"_s, Time), noneOf("time"));
        QCOMPARE(said(u"amanhã"_s, Bytes),
                 QStringList({u"Value"_s, u"\"value\" is no kind that the column holds"_s}));
    }

    void bytes_so_servem_a_uma_coluna_de_bytes_e_ela_so_a_eles()
    {
        const QByteArray bytes("a\0b", 3);
        QCOMPARE(std::get<QByteArray>(Converter(bytes, Bytes)), bytes);
        QVERIFY(std::holds_alternative<std::monostate>(Converter(nullptr, Bytes)));
        for (const ColumnType type : {Text, Long, Single, YesNo, Date, Time, Pattern})
            VERIFICAR_FALHA(Converter(bytes, type), Failure::TypeMismatch);
        VERIFICAR_FALHA(Converter(u"texto"_s, Bytes), Failure::TypeMismatch);
        VERIFICAR_FALHA(Converter(7, Bytes), Failure::TypeMismatch);
    }
};

MORVEX_TESTE(TestValues)
#include "test_Values.moc"
