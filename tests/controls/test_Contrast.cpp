// Colours that can be read: the measure, the letters of a ground, the field with the keyboard, the program's
// own two palettes.
#include "controls/Contrast.h"
#include "controls/Palettes.h"
#include "controls/Units.h"
#include "testlib/Teste.h"

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace
{
// Two fields, the first with the keyboard.
struct Campos {
    Campos()
    {
        segundo.move(0, 40);
        janela.show();
        janela.activateWindow();
        primeiro.setFocus();
        QCoreApplication::processEvents();
    }
    QWidget janela;
    QLineEdit primeiro{&janela};
    QComboBox segundo{&janela};
};

QColor Cor(const QWidget &campo, QPalette::ColorRole papel) { return campo.palette().color(papel); }
} // namespace

class TestContrast : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setDark(false); }

    void o_contraste_vai_de_um_a_vinte_e_um()
    {
        QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
        QCOMPARE(contrast(Qt::red, Qt::red), 1.0);
        QCOMPARE(qRound(100 * contrast(QColor(0x767676), Qt::white)), 454); // a figure well known
        QCOMPARE(contrast(Qt::blue, Qt::white), contrast(Qt::white, Qt::blue));
        QCOMPARE(qRound(1000 * contrast(QColor(10, 10, 10), Qt::black)), 1061); // almost black
    }

    void em_qualquer_fundo_ha_letras_que_se_leem()
    {
        for (int r = 0; r < 256; r += 15)
            for (int g = 0; g < 256; g += 15)
                for (int b = 0; b < 256; b += 15) {
                    const QColor fundo(r, g, b);
                    QVERIFY2(contrast(lettersOn(fundo), fundo) >= readableContrast, qPrintable(fundo.name()));
                    QVERIFY(contrast(readableOn(fundo, fundo), fundo) >= readableContrast);
                }
    }

    void uma_cor_que_se_le_fica_como_e()
    {
        QCOMPARE(readableOn(QColor(0x1f6f9f), Qt::white), QColor(0x1f6f9f));
        const QColor clareada = readableOn(QColor(0x1f6f9f), QColor(0x1f2224));
        QVERIFY(clareada != QColor(0x1f6f9f));
        QVERIFY(clareada.blue() > clareada.red()); // still a blue
        // No further towards white than it must, and each of its three shares by as much.
        QVERIFY(contrast(clareada, QColor(0x1f2224)) < readableContrast + 0.5);
        const double caminho = (clareada.red() - 0x1f) / double(0xff - 0x1f);
        QCOMPARE(clareada.green(), qRound(0x6f + caminho * (0xff - 0x6f)));
        QCOMPARE(clareada.blue(), qRound(0x9f + caminho * (0xff - 0x9f)));
    }

    // By twentieths of the way to black or white, the first that will do.
    void uma_cor_que_quase_se_le_muda_um_vigesimo()
    {
        QCOMPARE(readableOn(QColor(0x787878), Qt::white), QColor(0x727272));
        QCOMPARE(readableOn(QColor(0x1f6f9f), QColor(0x1f2224)), QColor(0x5793b7)); // five
    }

    void o_campo_com_o_teclado_traz_as_letras_do_seu_fundo_data()
    {
        QTest::addColumn<bool>("escuro");
        QTest::newRow("claro") << false;
        QTest::newRow("escuro") << true;
    }
    void o_campo_com_o_teclado_traz_as_letras_do_seu_fundo()
    {
        QFETCH(bool, escuro);
        setDark(escuro);
        Campos c;
        QCOMPARE(Cor(c.primeiro, QPalette::Base), colour(colourFocus));
        QVERIFY(contrast(Cor(c.primeiro, QPalette::Text), colour(colourFocus)) > readableContrast);
        c.segundo.setFocus();
        QCOMPARE(Cor(c.segundo, QPalette::Button), colour(colourFocus));
        QVERIFY(contrast(Cor(c.segundo, QPalette::ButtonText), colour(colourFocus)) > readableContrast);
        QCOMPARE(Cor(c.primeiro, QPalette::Base), qApp->palette().color(QPalette::Base));
        QCOMPARE(Cor(c.primeiro, QPalette::Text), qApp->palette().color(QPalette::Text));
    }

    void o_campo_que_tinha_o_teclado_quando_a_paleta_mudou_recebe_a_nova()
    {
        Campos c;
        setDark(true);
        QCoreApplication::processEvents(); // it reaches the controls as an event
        QCOMPARE(Cor(c.primeiro, QPalette::Base), colour(colourFocus));
        c.segundo.setFocus();
        QCOMPARE(Cor(c.primeiro, QPalette::Base), darkPalette().color(QPalette::Base));
        QCOMPARE(Cor(c.primeiro, QPalette::Text), darkPalette().color(QPalette::Text));
    }

    void uma_cor_que_o_campo_tinha_volta_com_as_letras_dela()
    {
        Campos c;
        c.segundo.setFocus();
        QPalette propria = c.primeiro.palette();
        setGround(propria, Qt::darkBlue);
        c.primeiro.setPalette(propria);
        c.primeiro.setFocus();
        QCOMPARE(Cor(c.primeiro, QPalette::Base), colour(colourFocus));
        c.segundo.setFocus();
        QCOMPARE(Cor(c.primeiro, QPalette::Base), QColor(Qt::darkBlue));
        QCOMPARE(Cor(c.primeiro, QPalette::Text), QColor(Qt::white));
    }

    void as_duas_paletas_do_programa_leem_se_em_cada_par_data()
    {
        o_campo_com_o_teclado_traz_as_letras_do_seu_fundo_data();
    }
    void as_duas_paletas_do_programa_leem_se_em_cada_par()
    {
        QFETCH(bool, escuro);
        setDark(escuro);
        const QPalette p = qApp->palette();
        using Par = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
        for (const auto &[letras, fundo] :
             {Par(QPalette::WindowText, QPalette::Window), Par(QPalette::Text, QPalette::Base),
              Par(QPalette::Text, QPalette::AlternateBase), Par(QPalette::ButtonText, QPalette::Button),
              Par(QPalette::HighlightedText, QPalette::Highlight),
              Par(QPalette::ToolTipText, QPalette::ToolTipBase), Par(QPalette::Link, QPalette::Base),
              Par(QPalette::Link, QPalette::Window), Par(QPalette::PlaceholderText, QPalette::Base)})
            for (const auto grupo : {QPalette::Active, QPalette::Inactive})
                QVERIFY2(contrast(p.color(grupo, letras), p.color(grupo, fundo)) >= readableContrast,
                         qPrintable(u"%1 on %2"_s.arg(letras).arg(fundo)));
        QCOMPARE(lettersOn(p.color(QPalette::Window)) == QColor(Qt::white), escuro);
    }

private:
    static void setDark(bool dark) { static_cast<Application *>(qApp)->setDark(dark); }
};

MORVEX_TESTE(TestContrast)
#include "test_Contrast.moc"
