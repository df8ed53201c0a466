// The pictures that the database holds.
#include "data/Fotografias.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QBuffer>
#include <QImage>

using namespace Qt::StringLiterals;

namespace
{
const QString nome = u"bd:da39a3ee5e6b4b0d3255bfef95601890afd80709.jpg"_s;

// Points that no format makes small.
QByteArray Ruido(QSize pontos, const char *formato)
{
    QImage imagem(pontos, QImage::Format_RGB32);
    quint32 acaso = 1;
    for (int y = 0; y < pontos.height(); ++y)
        for (int x = 0; x < pontos.width(); ++x)
            imagem.setPixel(x, y, acaso = acaso * 1664525 + 1013904223);
    QByteArray bytes;
    QBuffer ficheiro(&bytes);
    ficheiro.open(QIODevice::WriteOnly);
    imagem.save(&ficheiro, formato);
    return bytes;
}

QImage Lida(const QByteArray &bytes) { return QImage::fromData(bytes); }
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
        QString base = s.Base();
        DE outra(base, s.Pasta()); // opened anew
        QCOMPARE(FotografiasDaBase(outra).Ler(nome), bytes);
    }

    void uma_fotografia_lida_nao_fica_em_memoria()
    {
        Sistema s;
        FotografiasDaBase fotografias(s.geral.de);
        fotografias.Guardar(nome, "uma");
        QCOMPARE(fotografias.Ler(nome), "uma"_ba);
        QCOMPARE(s.geral.de.Rs("cmdLerFotografia").State(), Recordset::Closed);
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

    // As a shared database keeps them

    void ate_dois_megabytes_fica_como_e()
    {
        const QByteArray png = Ruido({500, 300}, "PNG");
        const FotografiaParaABase pronta = Preparar_Para_A_Base(png);
        QCOMPARE(pronta.bytes, png);
        QCOMPARE(pronta.nome, Nome_Na_Base(png, "png"));
        QVERIFY(pronta.nome.startsWith(u"bd:"_s) && pronta.nome.endsWith(u".png"_s));
        QCOMPARE(Preparar_Para_A_Base(png).nome, pronta.nome);
        QVERIFY(Preparar_Para_A_Base(Ruido({50, 30}, "JPEG")).nome.endsWith(u".jpg"_s));
    }

    void um_byte_acima_de_dois_megabytes_ja_se_reduz()
    {
        const QByteArray png = Ruido({50, 30}, "PNG");
        const auto ate = [&](qsizetype bytes) { return png + QByteArray(bytes - png.size(), '\0'); };
        QCOMPARE(Preparar_Para_A_Base(ate(2 << 20)).bytes.size(), qsizetype{2 << 20});
        const QByteArray reduzida = Preparar_Para_A_Base(ate((2 << 20) + 1)).bytes;
        QVERIFY(reduzida.size() < 100'000);
        QCOMPARE(Lida(reduzida).size(), QSize(50, 30)); // small enough, and no larger
    }

    void acima_de_dois_megabytes_fica_com_1600_pontos_e_jpeg_data()
    {
        QTest::addColumn<QSize>("pontos");
        QTest::addColumn<QSize>("ficam");
        QTest::newRow("deitada") << QSize(2000, 1000) << QSize(1600, 800);
        QTest::newRow("de pe") << QSize(1000, 2000) << QSize(800, 1600);
        QTest::newRow("mais pequena") << QSize(1000, 900) << QSize(1000, 900);
        QTest::newRow("uma tira") << QSize(200'000, 6) << QSize(1600, 1);
        QTest::newRow("uma tira de pe") << QSize(6, 200'000) << QSize(1, 1600);
    }
    void acima_de_dois_megabytes_fica_com_1600_pontos_e_jpeg()
    {
        QFETCH(QSize, pontos);
        QFETCH(QSize, ficam);
        const QByteArray bmp = Ruido(pontos, "BMP");
        QVERIFY(bmp.size() > 2 << 20);
        const FotografiaParaABase pronta = Preparar_Para_A_Base(bmp);
        QCOMPARE(Lida(pronta.bytes).size(), ficam);
        QVERIFY(pronta.bytes.startsWith("\xff\xd8"));
        QCOMPARE(pronta.nome, Nome_Na_Base(pronta.bytes, "jpeg"));
    }

    void uma_reduzida_mostra_o_mesmo_e_o_que_e_transparente_fica_branco()
    {
        QImage imagem(1000, 1000, QImage::Format_ARGB32);
        imagem.fill(Qt::transparent);
        for (int y = 0; y < 1000; ++y)
            for (int x = 0; x < 500; ++x)
                imagem.setPixel(x, y, qRgb(200, 30, 60));
        QByteArray png;
        QBuffer ficheiro(&png);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        QVERIFY(imagem.save(&ficheiro, "PNG"));
        const QByteArray grande = png + QByteArray(2 << 20, '\0');
        const QImage reduzida = Lida(Preparar_Para_A_Base(grande).bytes);
        QVERIFY(qGray(reduzida.pixel(750, 500)) > 250);
        const QColor cor = reduzida.pixelColor(250, 500);
        QVERIFY2(std::abs(cor.red() - 200) < 8 && std::abs(cor.green() - 30) < 8 && std::abs(cor.blue() - 60) < 8,
                 qPrintable(cor.name()));
    }

    void o_que_nao_e_imagem_nao_se_guarda_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nada") << QByteArray();
        QTest::newRow("letras") << QByteArray("nenhuma imagem");
        QTest::newRow("letras sem fim") << QByteArray(3 << 20, 'a');
        QTest::newRow("um desenho") << QByteArray(
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
        QTest::newRow("cortada") << Ruido({200, 200}, "PNG").left(3000);
    }
    void o_que_nao_e_imagem_nao_se_guarda()
    {
        QFETCH(QByteArray, bytes);
        VERIFICAR_FALHA(Preparar_Para_A_Base(bytes), Failure::InvalidPicture);
    }
};

MORVEX_TESTE(TestFotografias)
#include "test_Fotografias.moc"
