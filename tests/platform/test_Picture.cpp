// Picture files: their natural size, their points, and files that are none.
#include "platform/Picture.h"
#include "testlib/FalhaDita.h"
#include "testlib/MemoriaPedida.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestPicture : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;

    // Red on the left half, blue on the right.
    QString Guardar(const QString &name, const char *format, QSize size = {40, 20}) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        for (int y = 0; y < size.height(); ++y)
            for (int x = size.width() / 2; x < size.width(); ++x)
                image.setPixelColor(x, y, Qt::blue);
        if (!image.save(folder_.filePath(name), format)) qFatal("no picture to test with");
        return folder_.filePath(name);
    }
    QString Bytes_Em(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder_.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no file to test with");
        return file.fileName();
    }
    static QByteArray Ler(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // The same photograph, whose camera lay on its side: the mark asks for a quarter turn to the right.
    QString Deitada() const
    {
        const QByteArray mark("\xff\xe1\x00\x22"
                              "Exif\0\0"
                              "MM\0*\0\0\0\x08"
                              "\0\x01"
                              "\x01\x12\0\x03\0\0\0\x01\0\x06\0\0"
                              "\0\0\0\0",
                              36);
        QByteArray jpeg = Ler(Guardar(u"direita.jpg"_s, "JPG"));
        return Bytes_Em(u"deitada.jpg"_s, jpeg.insert(2, mark));
    }

private Q_SLOTS:
    void o_que_nao_e_uma_imagem_diz_de_que_ficheiro_se_fala()
    {
        const QString falta = folder_.filePath(u"falta.png"_s);
        QCOMPARE(teste::Falha_Dita([&] { const Picture nenhuma(falta); }).value(1), u"Invalid picture: "_s + falta);
    }

    void um_nome_completo_fica_e_os_outros_sao_da_pasta_data()
    {
        QTest::addColumn<QString>("ficheiro");
        for (const auto *nome : {"C:\\fotos\\ana.jpg", "\\\\servidor\\ana.jpg", "/fotos/ana.jpg"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
        QTest::newRow("ana.jpg") << u"/pasta/ana.jpg"_s;
        QTest::newRow("fotos\\ana.jpg") << u"/pasta/fotos/ana.jpg"_s;
        QTest::newRow("\\fotos\\ana.jpg") << u"/pasta//fotos/ana.jpg"_s;
        QTest::newRow("C:ana.jpg") << u"/pasta/C:ana.jpg"_s;
    }
    void um_nome_completo_fica_e_os_outros_sao_da_pasta()
    {
        QTEST(pictureFile(u"/pasta"_s, QString::fromLatin1(QTest::currentDataTag())), "ficheiro");
    }

    void o_tamanho_natural_le_se_do_ficheiro_data()
    {
        QTest::addColumn<QByteArray>("format");
        for (const char *format : {"JPG", "PNG", "BMP"})
            QTest::newRow(format) << QByteArray(format);
    }
    void o_tamanho_natural_le_se_do_ficheiro()
    {
        QFETCH(QByteArray, format);
        const Picture picture(Guardar(u"foto"_s, format.constData()));
        QCOMPARE(picture.naturalSize(), QSize(40, 20));
        QCOMPARE(picture.path(), folder_.filePath(u"foto"_s));
    }

    void a_imagem_vem_no_tamanho_pedido_maior_ou_menor()
    {
        const Picture picture(Guardar(u"foto.png"_s, "PNG"));
        for (const QSize size : {QSize(40, 20), QSize(10, 10), QSize(80, 80), QSize(10, 100)}) {
            const QImage image = picture.image(size);
            QCOMPARE(image.size(), size);
            QCOMPARE(image.pixelColor(1, 1), QColor(Qt::red));
            QCOMPARE(image.pixelColor(size.width() - 2, 1), QColor(Qt::blue));
        }
    }

    void uma_imagem_muito_grande_vem_no_tamanho_pedido_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("natural");
        QTest::addColumn<QSize>("pedido");
        QTest::newRow("JPG, small") << QByteArray("JPG") << QSize(8000, 6000) << QSize(80, 60);
        QTest::newRow("JPG, as it is") << QByteArray("JPG") << QSize(6000, 6000) << QSize(6000, 6000);
        QTest::newRow("BMP, small") << QByteArray("BMP") << QSize(8000, 6000) << QSize(80, 60);
    }
    void uma_imagem_muito_grande_vem_no_tamanho_pedido()
    {
        QFETCH(QByteArray, format);
        QFETCH(QSize, natural);
        QFETCH(QSize, pedido);
        QImage image(natural, QImage::Format_RGB888);
        image.fill(Qt::white);
        const QString path = folder_.filePath(u"enorme"_s);
        QVERIFY(image.save(path, format.constData()));
        const Picture picture(path);
        QCOMPARE(picture.naturalSize(), natural);
        const QImage shown = picture.image(pedido);
        QCOMPARE(shown.size(), pedido);
        QCOMPARE(shown.pixelColor(pedido.width() / 2, pedido.height() / 2), QColor(Qt::white));
        QVERIFY(QFile::remove(path));
    }

    // All its points would take 192 MB.
    void uma_fotografia_muito_grande_mostra_se_pequena_sem_se_desdobrar_toda()
    {
        if (!memoria::Medida::Possivel()) QSKIP("nobody measures memory here");
        QImage image(8000, 6000, QImage::Format_RGB888);
        image.fill(Qt::white);
        const QString path = folder_.filePath(u"enorme.jpg"_s);
        QVERIFY(image.save(path, "JPG"));
        image = {};
        const Picture picture(path);
        const memoria::Medida medida;
        QCOMPARE(picture.image({80, 60}).size(), QSize(80, 60));
        QVERIFY2(medida.Maximo() < 40'000'000, qPrintable(QString::number(medida.Maximo())));
        QVERIFY(QFile::remove(path));
    }

    void o_conteudo_decide_e_nao_a_extensao()
    {
        const Picture picture(Guardar(u"foto.jpg"_s, "PNG"));
        QCOMPARE(picture.image(picture.naturalSize()).pixelColor(1, 1), QColor(Qt::red));
    }

    void uma_foto_deitada_e_posta_de_pe()
    {
        const Picture picture(Deitada());
        QCOMPARE(picture.naturalSize(), QSize(20, 40));
        for (const QSize size : {QSize(20, 40), QSize(10, 20)}) {
            const QImage image = picture.image(size);
            QCOMPARE(image.size(), size);
            const auto middle = [&](int y) { return image.pixelColor(size.width() / 2, y); };
            QVERIFY(middle(2).red() > 200 && middle(2).blue() < 60);
            QVERIFY(middle(size.height() - 3).blue() > 200);
        }
    }

    void o_que_nao_e_imagem_e_um_erro_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no picture at all");
        QTest::newRow("only the first bytes") << QByteArray("\x89PNG\r\n\x1a\n", 8);
    }
    void o_que_nao_e_imagem_e_um_erro()
    {
        QFETCH(QByteArray, bytes);
        const QString path = Bytes_Em(u"estragada.png"_s, bytes);
        VERIFICAR_FALHA(Picture{path}, Failure::InvalidPicture);
    }

    void ficheiro_em_falta_e_um_erro()
    {
        VERIFICAR_FALHA(Picture{folder_.filePath(u"nenhuma.jpg"_s)}, Failure::InvalidPicture);
        VERIFICAR_FALHA(Picture{QString()}, Failure::InvalidPicture);
    }

    void uma_imagem_cortada_falha_quando_se_mostra()
    {
        const QByteArray whole = Ler(Guardar(u"inteira.png"_s, "PNG", {400, 400}));
        const Picture picture(Bytes_Em(u"cortada.png"_s, whole.left(whole.size() / 2)));
        QCOMPARE(picture.naturalSize(), QSize(400, 400));
        VERIFICAR_FALHA(picture.image({40, 40}), Failure::InvalidPicture);
    }

    void de_bytes_e_a_mesma_imagem_que_do_ficheiro_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("png") << Guardar(u"foto.png"_s, "PNG");
        QTest::newRow("jpg deitada") << Deitada();
    }
    void de_bytes_e_a_mesma_imagem_que_do_ficheiro()
    {
        QFETCH(QString, path);
        const Picture file(path);
        const Picture bytes(Ler(path), u"bd:x"_s);
        QCOMPARE(bytes.path(), u"bd:x"_s);
        QCOMPARE(bytes.naturalSize(), file.naturalSize());
        QCOMPARE(bytes.image({30, 20}), file.image({30, 20}));
        const Picture copy = bytes; // NOLINT: shows that a copy has the bytes
        QCOMPARE(copy.image({30, 20}), file.image({30, 20}));
    }

    // Neither may be taken for a path: the name can be one.
    void bytes_que_nao_sao_imagem_sao_um_erro()
    {
        const QString path = Guardar(u"foto.png"_s, "PNG");
        VERIFICAR_FALHA(Picture(QByteArray(), path), Failure::InvalidPicture);
        VERIFICAR_FALHA(Picture(QByteArray("nada"), path), Failure::InvalidPicture);
        VERIFICAR_FALHA(
            Picture(QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'/>"), path),
            Failure::InvalidPicture);
    }
};

MORVEX_TESTE(TestPicture)
#include "test_Picture.moc"
