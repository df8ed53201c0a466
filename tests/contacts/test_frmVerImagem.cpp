// The picture viewer: how a picture is fitted, and how the window closes.
#include "contacts/frmVerImagem.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestFrmVerImagem : public QObject
{
    Q_OBJECT

    static Picture Imagem(const Sistema &s, int largura, int altura)
    {
        const QString ficheiro = s.Ficheiro(u"%1x%2.png"_s.arg(largura).arg(altura));
        QImage desenho(largura, altura, QImage::Format_RGB32);
        desenho.fill(Qt::darkGreen);
        desenho.save(ficheiro);
        return Picture(ficheiro);
    }

private Q_SLOTS:
    void onde_fica_a_imagem_data()
    {
        QTest::addColumn<QSizeF>("natural");
        QTest::addColumn<QSizeF>("janela");
        QTest::addColumn<QRectF>("lugar");
        const QSizeF janela(600, 400);
        QTest::newRow("menor do que a janela fica ao meio")
            << QSizeF(100, 60) << janela << QRectF(250, 170, 100, 60);
        QTest::newRow("alta que chega enche a altura")
            << QSizeF(400, 800) << janela << QRectF(200, 0, 200, 400);
        QTest::newRow("alta de altura igual") << QSizeF(300, 400) << janela << QRectF(150, 0, 300, 400);
        QTest::newRow("alta que nao chega") << QSizeF(300, 399) << janela << QRectF(150, 0.5, 300, 399);
        QTest::newRow("larga que chega enche a largura")
            << QSizeF(1200, 400) << janela << QRectF(0, 100, 600, 200);
        QTest::newRow("larga de largura igual") << QSizeF(600, 100) << janela << QRectF(0, 150, 600, 100);
        QTest::newRow("larga que nao chega e mais alta do que a janela")
            << QSizeF(599, 500) << janela << QRectF(0.5, -50, 599, 500);
        QTest::newRow("quadrada nunca e ajustada")
            << QSizeF(900, 900) << janela << QRectF(-150, -250, 900, 900);
        QTest::newRow("alta numa janela estreita sobra dos lados")
            << QSizeF(450, 500) << QSizeF(100, 400) << QRectF(-130, 0, 360, 400);
    }
    void onde_fica_a_imagem()
    {
        QFETCH(QSizeF, natural);
        QFETCH(QSizeF, janela);
        QFETCH(QRectF, lugar);
        QCOMPARE(frmVerImagem::Lugar(natural, janela), lugar);
    }

    void a_legenda_vem_dos_textos()
    {
        Sistema s;
        frmVerImagem form(s.geral, Imagem(s, 10, 20));
        QCOMPARE(form.windowTitle(), s.Texto(11));
        QCOMPARE(form.Image1->accessibleName(), s.Texto(11));
    }

    void uma_imagem_pequena_fica_ao_meio_no_seu_tamanho()
    {
        Sistema s;
        frmVerImagem form(s.geral, Imagem(s, 100, 60));
        form.resize(600, 400);
        form.show();
        QCOMPARE(form.Image1->geometry(), QRect(250, 170, 100, 60));
        QCOMPARE(form.Image1->pixmap().deviceIndependentSize(), QSizeF(100, 60));
    }

    void a_imagem_segue_o_tamanho_da_janela()
    {
        Sistema s;
        frmVerImagem form(s.geral, Imagem(s, 1200, 400));
        form.resize(600, 400);
        form.show();
        QCOMPARE(form.Image1->geometry(), QRect(0, 100, 600, 200));
        form.resize(900, 400);
        QCOMPARE(form.Image1->geometry(), QRect(0, 50, 900, 300));
        form.resize(1300, 500); // larger than the picture: no longer stretched
        QCOMPARE(form.Image1->geometry(), QRect(50, 50, 1200, 400));
    }

    void fecha_com_data()
    {
        QTest::addColumn<std::function<void(frmVerImagem &)>>("gesto");
        const auto gesto = [](const char *nome, const std::function<void(frmVerImagem &)> &g) {
            QTest::newRow(nome) << g;
        };
        gesto("clique na imagem", [](frmVerImagem &f) { QTest::mouseClick(f.Image1, Qt::LeftButton); });
        gesto("clique na janela", [](frmVerImagem &f) { QTest::mouseClick(&f, Qt::LeftButton, {}, {2, 2}); });
        gesto("letra", [](frmVerImagem &f) { QTest::keyClick(&f, Qt::Key_A); });
        gesto("enter", [](frmVerImagem &f) { QTest::keyClick(&f, Qt::Key_Return); });
        gesto("escape", [](frmVerImagem &f) { QTest::keyClick(&f, Qt::Key_Escape); });
        gesto("seta", [](frmVerImagem &f) { QTest::keyClick(&f, Qt::Key_Down); });
    }
    void fecha_com()
    {
        QFETCH(std::function<void(frmVerImagem &)>, gesto);
        Sistema s;
        frmVerImagem form(s.geral, Imagem(s, 100, 60));
        form.show();
        gesto(form);
        QVERIFY(!form.isVisible());
    }

    void uma_imagem_que_se_estragou_entretanto_da_o_erro()
    {
        Sistema s;
        const Picture imagem = Imagem(s, 100, 60);
        QFile::remove(imagem.path());
        frmVerImagem form(s.geral, imagem);
        s.caixas.Espera_Erro(Failure::InvalidPicture);
        form.show();
        QVERIFY(s.caixas.Todas_Vistas());
    }
};

MORVEX_TESTE(TestFrmVerImagem)
#include "test_frmVerImagem.moc"
