// The desktop's letters: every form at every size of them, in every language.
#include "controls/ElidingLabel.h"
#include "controls/ImageButton.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/frmSeleccionarIdioma.h"
#include "data/Idiomas.h"
#include "online/frmPopupEmail.h"
#include "online/RotuloEstado.h"
#include "reminders/frmPopup.h"
#include "session/Formularios.h"
#include "session/frmSobre.h"
#include "session/Legendas.h"
#include "testlib/Teste.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{
constexpr double pontos_por_polegada = 96;

int Letras(double pontos)
{
    QFont fonte;
    fonte.setPointSizeF(pontos);
    return scale::lettersFor(fonte, pontos_por_polegada);
}

// Letters of that size for as long as it lives.
struct ComLetras {
    explicit ComLetras(int pixels) { scale::setLetters(pixels); }
    ~ComLetras() { scale::setLetters(scale::standardLetters); }
};

const QMap<QString, Abertura> outros{
    {u"Main"_s,
     [](ComFormulario &c) -> QWidget * {
         auto *janela = c.Novo<Main>(c.s.geral, c.s.plataforma);
         legendas::Atribuir(*static_cast<Main *>(janela), c.s.geral);
         return janela;
     }},
    {u"frmSobre"_s, [](ComFormulario &c) { return c.Novo<frmSobre>(c.s.geral, nullptr); }},
    {u"frmSeleccionarIdioma"_s,
     [](ComFormulario &c) { return c.Novo<frmSeleccionarIdioma>(c.s.geral, c.s.plataforma); }},
    {u"frmPopup"_s,
     [](ComFormulario &c) { return c.Novo<frmPopup>(c.s.geral, c.s.plataforma, c.janela, c.relatorio); }},
    {u"frmPopupEmail"_s, [](ComFormulario &c) {
         return c.Novo<frmPopupEmail>(c.janela,
                                      u"nome.do.utilizador@correio.exemplo (%1)"_s.arg(c.s.Texto(261)));
     }}};

QSize Palavras(const QWidget &controlo, const QString &texto, int largura, bool em_linhas)
{
    const int como = Qt::TextShowMnemonic | (em_linhas ? Qt::TextWrapAnywhere : 0);
    return controlo.fontMetrics().boundingRect(QRect(0, 0, largura, 10000), como, texto).size();
}

// What a control needs for its words; nothing for one without words of its own.
QSize Preciso(const QWidget &controlo)
{
    if (qobject_cast<const ElidingLabel *>(&controlo) != nullptr) return {};
    const int largura = controlo.width();
    if (dynamic_cast<const RotuloEstado *>(&controlo) != nullptr)
        return Palavras(controlo, controlo.property("text").toString(), largura, true);
    if (const auto *rotulo = qobject_cast<const QLabel *>(&controlo)) {
        if (rotulo->text().isEmpty()) return {};
        return rotulo->wordWrap() ? QSize(0, rotulo->heightForWidth(largura)) : rotulo->sizeHint();
    }
    if (const auto *botao = qobject_cast<const ImageButton *>(&controlo)) {
        const int imagem = 3 * scale::scaled(6) + botao->iconSize().width();
        QRect palavras = botao->fontMetrics().boundingRect(
            QRect(0, 0, largura - imagem, 10000), Qt::TextWordWrap | Qt::TextShowMnemonic, botao->text());
        return palavras.size() + QSize(imagem, 0);
    }
    if (const auto *botao = qobject_cast<const QAbstractButton *>(&controlo)) {
        if (botao->text().isEmpty()) return {};
        const bool com_marca = qobject_cast<const QCheckBox *>(botao) != nullptr ||
                               qobject_cast<const QRadioButton *>(botao) != nullptr;
        if (com_marca) return botao->sizeHint();
        return Palavras(controlo, botao->text(), 10000, false) + QSize(4, 2);
    }
    if (const auto *quadro = qobject_cast<const QGroupBox *>(&controlo))
        return Palavras(controlo, quadro->title(), 10000, false) + QSize(8, 0);
    if (const auto *separadores = qobject_cast<const QTabBar *>(&controlo)) return separadores->sizeHint();
    if (qobject_cast<const QLineEdit *>(&controlo) != nullptr ||
        qobject_cast<const QComboBox *>(&controlo) != nullptr)
        return {0, controlo.fontMetrics().height()};
    return {};
}

QString Nome(const QWidget &controlo) { return controlo.objectName(); }

QList<QWidget *> Controlos(const QWidget &form)
{
    QList<QWidget *> vistos;
    for (QWidget *controlo : form.findChildren<QWidget *>())
        if (controlo->isVisible() && !controlo->isWindow() && !Nome(*controlo).isEmpty() &&
            !Nome(*controlo).startsWith("qt_"_L1))
            vistos << controlo;
    return vistos;
}

void Ver_Cortados(const QWidget &form, QStringList &cortados)
{
    for (const QWidget *controlo : Controlos(form)) {
        const QSize preciso = Preciso(*controlo);
        if (preciso.width() > controlo->width() || preciso.height() > controlo->height())
            cortados << u"%1 %2x%3 in %4x%5"_s.arg(Nome(*controlo))
                            .arg(preciso.width())
                            .arg(preciso.height())
                            .arg(controlo->width())
                            .arg(controlo->height());
    }
}

void Ver_Sobrepostos(const QWidget &form, QStringList &sobrepostos)
{
    const QList<QWidget *> controlos = Controlos(form);
    for (int i = 0; i < controlos.size(); ++i)
        for (int j = i + 1; j < controlos.size(); ++j)
            if (controlos[i]->parentWidget() == controlos[j]->parentWidget() &&
                controlos[i]->geometry().intersects(controlos[j]->geometry()))
                sobrepostos << Nome(*controlos[i]) + u'/' + Nome(*controlos[j]);
}

// Of what is drawn in the form itself: the margins of its layouts, and the sides of what stands in none.
int Medidas(const QWidget &form)
{
    const auto desenhado = [](const QObject &um) {
        return !um.objectName().isEmpty() && !um.objectName().startsWith("qt_"_L1);
    };
    int soma = 0;
    for (const QLayout *layout : form.findChildren<QLayout *>()) {
        const QMargins margens = layout->contentsMargins();
        if (desenhado(*layout)) soma += margens.left() + margens.top() + margens.right() + margens.bottom();
    }
    for (const QWidget *controlo : form.findChildren<QWidget *>())
        if (desenhado(*controlo) && !controlo->isWindow() && controlo->parentWidget()->layout() == nullptr)
            soma += controlo->width() + controlo->height();
    return soma;
}

struct Visto {
    QStringList cortados;
    QStringList sobrepostos;
};

Visto Olhar(QWidget &form)
{
    form.show();
    QCoreApplication::processEvents();
    Visto visto;
    auto *separadores = form.findChild<QTabBar *>(u"tbsOptions"_s);
    for (int i = 0; i < (separadores == nullptr ? 1 : separadores->count()); ++i) {
        if (separadores != nullptr) separadores->setCurrentIndex(i);
        QCoreApplication::processEvents();
        Ver_Cortados(form, visto.cortados);
        Ver_Sobrepostos(form, visto.sobrepostos);
    }
    return visto;
}
} // namespace

class TestLetrasDoAmbiente : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { scale::setLetters(scale::standardLetters); }

    void as_letras_seguem_as_do_ambiente_de_cem_a_trezentos_por_cento_data()
    {
        QTest::addColumn<double>("pontos");
        QTest::addColumn<double>("por_polegada");
        QTest::addColumn<int>("letras");
        QTest::newRow("8 points") << 8.0 << 96.0 << 11;
        QTest::newRow("9 points, the standard") << 9.0 << 96.0 << 11;
        QTest::newRow("10 points") << 10.0 << 96.0 << 12;
        QTest::newRow("11 points") << 11.0 << 96.0 << 13;
        QTest::newRow("14 points") << 14.0 << 96.0 << 17;
        QTest::newRow("18 points") << 18.0 << 96.0 << 22;
        QTest::newRow("9 points at 192 dots") << 9.0 << 192.0 << 22;
        QTest::newRow("30 points, the largest") << 30.0 << 96.0 << 33;
    }
    void as_letras_seguem_as_do_ambiente_de_cem_a_trezentos_por_cento()
    {
        QFETCH(double, pontos);
        QFETCH(double, por_polegada);
        QFont fonte;
        fonte.setPointSizeF(pontos);
        QTEST(scale::lettersFor(fonte, por_polegada), "letras");
    }

    void nada_e_cortado_nem_se_sobrepoe_em_letras_maiores_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("idioma");
        for (const QString &nome : aberturas.keys() + outros.keys())
            if (nome != "frmVerImagem"_L1) // a picture without a word
                for (const Idioma &idioma : idiomas::todos)
                    QTest::addRow("%s, %s", qPrintable(nome), idioma.coluna)
                        << nome << QString::fromUtf8(idioma.coluna);
    }
    void nada_e_cortado_nem_se_sobrepoe_em_letras_maiores()
    {
        QFETCH(QString, nome);
        QFETCH(QString, idioma);
        const Abertura abrir = aberturas.contains(nome) ? aberturas[nome] : outros[nome];
        ComFormulario c(idioma);
        const Visto padrao = Olhar(*abrir(c));
        QStringList mal = padrao.cortados;
        for (const double pontos : {10.0, 11.0, 14.0, 18.0, 30.0}) {
            const ComLetras letras(Letras(pontos));
            c.form.reset();
            Visto visto = Olhar(*abrir(c));
            for (const QString &ja : padrao.sobrepostos)
                visto.sobrepostos.removeAll(ja);
            for (const QString &este : visto.cortados + visto.sobrepostos)
                mal << u"%1 at %2 points"_s.arg(este).arg(pontos);
        }
        QVERIFY2(mal.isEmpty(), qPrintable(mal.join(u", ")));
    }

    void o_que_nao_tem_letras_tambem_cresce_com_elas_data()
    {
        QTest::addColumn<QString>("nome");
        for (const QString &nome : aberturas.keys() + outros.keys())
            QTest::newRow(qPrintable(nome)) << nome;
    }
    void o_que_nao_tem_letras_tambem_cresce_com_elas()
    {
        QFETCH(QString, nome);
        const Abertura abrir = aberturas.contains(nome) ? aberturas[nome] : outros[nome];
        ComFormulario c(u"PortuguesPT"_s);
        const int padrao = Medidas(*abrir(c));
        QVERIFY(padrao > 0);
        const ComLetras letras(2 * scale::standardLetters);
        c.form.reset();
        const int duplas = Medidas(*abrir(c));
        QVERIFY2(duplas > padrao * 3 / 2, qPrintable(u"%1 to %2"_s.arg(padrao).arg(duplas)));
    }

    void um_aviso_em_letras_duplas_sobe_no_mesmo_canto_duas_vezes_maior()
    {
        const ComLetras letras(2 * scale::standardLetters);
        ComFormulario c(u"AlemaoDE"_s);
        frmPopup aviso(c.s.geral, c.s.plataforma, c.janela, c.relatorio);
        const QRect ecra = QGuiApplication::primaryScreen()->geometry();
        QCOMPARE(aviso.size(), QSize(352, 222));
        aviso.show();
        QTRY_VERIFY_WITH_TIMEOUT(!aviso.TimerUp.Enabled(), 5000);
        QCOMPARE(aviso.x(), ecra.width() - 352 - 13);
        QVERIFY(qAbs(aviso.y() + aviso.height() - (ecra.height() - 3)) <= 1);
    }
};

MORVEX_TESTE(TestLetrasDoAmbiente)
#include "test_LetrasDoAmbiente.moc"
