// The pictures that the database holds.
#include "data/Fotografias.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
const QString nome = u"bd:da39a3ee5e6b4b0d3255bfef95601890afd80709.jpg"_s;
} // namespace

class TestFotografias : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void so_o_que_comeca_por_bd_e_da_base()
    {
        QVERIFY(E_Da_Base(nome));
        for (const QString &caminho :
             {u""_s, u"bd"_s, u"BD:x.jpg"_s, u"fotos/bd:x.jpg"_s, u"C:\\bd\\x.jpg"_s})
            QVERIFY2(!E_Da_Base(caminho), qPrintable(caminho));
    }

    void os_bytes_voltam_como_foram_ate_ao_ultimo()
    {
        Sistema s;
        FotografiasDaBase fotografias(s.geral.de);
        QByteArray bytes;
        for (int i = 0; i < 100'000; ++i)
            bytes.append(static_cast<char>(i * 7));
        bytes[0] = '\0';
        fotografias.Guardar(nome, bytes);
        QCOMPARE(fotografias.Ler(nome), bytes);
        Sistema outra(Sistema::Estado::Vazio); // the file itself, opened anew
        QFile::remove(outra.Base());
        QVERIFY(QFile::copy(s.Base(), outra.Base()));
        QCOMPARE(FotografiasDaBase(outra.geral.de).Ler(nome), bytes);
    }

    void o_mesmo_nome_duas_vezes_e_uma_so_linha()
    {
        Sistema s;
        FotografiasDaBase fotografias(s.geral.de);
        fotografias.Guardar(nome, "primeira");
        fotografias.Guardar(nome, "segunda");
        QCOMPARE(fotografias.Ler(nome), "primeira"_ba);
        QCOMPARE(s.Linhas(u"SELECT Nome FROM TblFotografias"_s), QStringList{nome});
    }

    void uma_que_nao_ha_e_vazia()
    {
        Sistema s;
        FotografiasDaBase fotografias(s.geral.de);
        QCOMPARE(fotografias.Ler(nome), QByteArray());
        fotografias.Guardar(nome, QByteArray());
        QCOMPARE(fotografias.Ler(nome), QByteArray());
        QCOMPARE(s.Linhas(u"SELECT length(Imagem) FROM TblFotografias"_s), QStringList{u"0"_s});
    }
};

MORVEX_TESTE(TestFotografias)
#include "test_Fotografias.moc"
