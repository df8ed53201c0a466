// The contact of the card on to the clipboard and on to the screen as a code.
#include "cards/CodigoQR.h"
#include "cards/ConteudoDoQR.h"
#include "cards/frmQR.h"
#include "data/CartoesGuardados.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"
#include "vcard/Cartoes.h"

#include <QClipboard>
#include <QMimeData>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace
{
struct ComContacto : ComJanela {
    ComContacto()
    {
        id = Mostrar({{u"Nome"_s, u"Ana Sá"_s},
                      {u"Telefone1"_s, u"211"_s},
                      {u"Telemovel1"_s, u"911"_s},
                      {u"Email1"_s, u"a@b"_s},
                      {u"Morada"_s, u"Rua A\r\nPorto"_s},
                      {u"Obs"_s, u"segredo"_s},
                      {u"Grupo"_s, 1}});
        janela.setWindowTitle(u"Morvex"_s);
        QGuiApplication::clipboard()->clear();
    }

    void Espera_Recusa() { s.caixas.Espera(s.Texto(165) + u"\r\n"_s + s.Texto(166), box::stop, u"Morvex"_s); }

    static QByteArray Cartao_Copiado()
    {
        const QMimeData *dados = QGuiApplication::clipboard()->mimeData();
        return dados == nullptr ? QByteArray() : dados->data(u"text/vcard"_s);
    }

    int id = 0;
};
} // namespace

class TestSaidaDeContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_contacto_copiado_e_um_cartao_e_linhas_de_texto()
    {
        ComContacto c;
        c.janela.RightClickCopiarCartao->trigger();
        const CardContent copiado = contentOf(CardReader().read(ComContacto::Cartao_Copiado()).cards.at(0));
        QCOMPARE(copiado.formattedName, u"Ana Sá"_s);
        QCOMPARE(Valores(copiado.phones), (QStringList{u"211"_s, u"911"_s}));
        QCOMPARE(Valores(copiado.notes), QStringList{u"segredo"_s});
        QVERIFY(ComContacto::Cartao_Copiado().startsWith("BEGIN:VCARD\r\nVERSION:3.0\r\n"));
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Ana Sá\n211\n911\na@b"_s);
        const auto lembrado = CartoesGuardados(c.s.geral.de).Ler(QString::number(c.id));
        QVERIFY(lembrado && copiado.uid == lembrado->UID);
    }

    void o_cartao_guardado_e_o_que_se_copia()
    {
        ComContacto c;
        CartoesGuardados(c.s.geral.de)
            .Guardar({QString::number(c.id), u"u-1"_s, Cartao("UID:u-1\r\nFN:Ana\r\nX-COISA:sim\r\n")});
        c.janela.RightClickCopiarCartao->trigger();
        const QByteArray copiado = ComContacto::Cartao_Copiado();
        QVERIFY2(copiado.contains("X-COISA:sim") && copiado.contains("FN:Ana Sá"), copiado);
    }

    void o_cartao_que_se_copia_leva_a_fotografia_e_e_sempre_da_mesma_versao()
    {
        ComContacto c;
        QImage imagem(3, 2, QImage::Format_RGB32);
        imagem.fill(Qt::red);
        QVERIFY(imagem.save(c.s.Ficheiro(u"ana.png"_s)));
        c.s.Escrever(u"UPDATE TblLista SET Fotografia = 'ana.png'"_s);
        CartoesGuardados(c.s.geral.de)
            .Guardar({QString::number(c.id), u"u-1"_s, Cartao("UID:u-1\r\nFN:Ana\r\n", "4.0")});
        c.janela.RightClickCopiarCartao->trigger();
        const QByteArray copiado = ComContacto::Cartao_Copiado();
        QVERIFY(copiado.startsWith("BEGIN:VCARD\r\nVERSION:3.0\r\n"));
        QCOMPARE(contentOf(CardReader().read(copiado).cards.at(0)).photos.size(), std::size_t{1});
    }

    void sem_contacto_escolhido_ou_depois_de_desaparecer_ha_uma_mensagem()
    {
        for (const bool desaparecido : {false, true}) {
            ComContacto c;
            if (desaparecido)
                c.s.Escrever(u"DELETE FROM TblLista"_s);
            else
                c.janela.ListaNomes->setListIndex(-1);
            for (QAction *comando : {c.janela.RightClickCopiarCartao, c.janela.RightClickQR}) {
                c.Espera_Recusa();
                comando->trigger();
                QVERIFY(c.s.caixas.Todas_Vistas());
            }
            QVERIFY(ComContacto::Cartao_Copiado().isEmpty());
            QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
            QVERIFY(c.janela.isEnabled());
        }
    }

    void o_codigo_e_o_do_contacto_com_o_nome_por_baixo_e_nada_fica_escrito()
    {
        ComContacto c;
        bool veio = false;
        accoes::Quando_Abrir<frmQR>([&](frmQR &form) {
            veio = true;
            const auto fechar = qScopeGuard([&] { form.close(); }); // also where something below is wrong
            QCOMPARE(form.lblNome->text(), u"Ana Sá"_s);
            QCOMPARE(form.windowTitle(), c.s.Texto(278).remove(u'&'));
            QCOMPARE(form.lblDica->text(), c.s.Texto(414));
            QCOMPARE(form.cmdFechar->text(), c.s.Texto(135));
            QCOMPARE(form.imgCodigo->accessibleName(), form.windowTitle() + u": Ana Sá"_s);
            const CodigoQR codigo(
                "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ana Sá\r\nN:Sá;Ana;;;\r\nTEL;TYPE=HOME,VOICE:211\r\n"
                "TEL;TYPE=CELL:911\r\nEMAIL:a@b\r\nADR:;;Rua A\\nPorto;;;;\r\nEND:VCARD\r\n");
            const QImage imagem = form.imgCodigo->pixmap().toImage();
            const int pontos = imagem.width() / (codigo.Lado() + 8);
            QVERIFY(pontos >= 4);
            QCOMPARE(imagem.convertToFormat(QImage::Format_RGB32), codigo.Imagem(pontos));
            QTest::keyClick(&form, Qt::Key_Escape);
            QVERIFY(!form.isVisible());
        });
        c.janela.RightClickQR->trigger();
        QVERIFY(veio && c.janela.isEnabled());
        QVERIFY(!CartoesGuardados(c.s.geral.de).Ler(QString::number(c.id)));
    }

    void a_margem_e_branca_tambem_numa_janela_escura()
    {
        Sistema s;
        const QPalette antes = QGuiApplication::palette();
        const auto repor = qScopeGuard([&] { QGuiApplication::setPalette(antes); });
        QPalette escura;
        escura.setColor(QPalette::Window, Qt::black);
        escura.setColor(QPalette::WindowText, Qt::white);
        QGuiApplication::setPalette(escura);
        frmQR form(s.geral, "Ana", u"Ana"_s);
        form.show();
        const QImage vista = form.imgCodigo->grab().toImage();
        const int pontos = vista.width() / (CodigoQR("Ana").Lado() + 8);
        for (int i = 0; i < vista.width(); ++i)
            for (int fora = 0; fora < 4 * pontos; ++fora) {
                QCOMPARE(vista.pixelColor(i, fora), QColor(Qt::white));
                QCOMPARE(vista.pixelColor(fora, i), QColor(Qt::white));
            }
        QCOMPARE(vista.pixelColor(4 * pontos, 4 * pontos), QColor(Qt::black)); // where the code begins
    }

    void um_codigo_cheio_tem_modulos_de_quatro_pontos_e_cabe_no_ecra()
    {
        Sistema s;
        frmQR form(s.geral, QByteArray(maior_conteudo_do_qr - 1, 'x'), QString(10'000, u'W'));
        form.show();
        QCOMPARE(form.imgCodigo->pixmap().deviceIndependentSize().width(), (77 + 8) * 4);
        QVERIFY(form.height() < 600 && form.width() < 800);
        QVERIFY(form.lblNome->text().size() <= 55);
    }

    void um_codigo_pequeno_cresce_por_modulos_inteiros_e_o_botao_fecha_o()
    {
        Sistema s;
        frmQR form(s.geral, "Ana", u"Ana"_s);
        form.show();
        QCOMPARE(form.imgCodigo->pixmap().width(), (21 + 8) * 10);
        form.cmdFechar->click();
        QVERIFY(!form.isVisible());
        QCOMPARE(form.result(), static_cast<int>(QDialog::Accepted));
    }

    // The density of the screen is settled when a program starts: one more of this is started.
    void num_ecra_denso_o_codigo_tem_mais_pontos_e_o_mesmo_tamanho()
    {
        if (qApp->devicePixelRatio() < 2) {
            QProcess num_denso;
            QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
            ambiente.insert(u"QT_SCALE_FACTOR"_s, u"2"_s);
            num_denso.setProcessEnvironment(ambiente);
            num_denso.start(QCoreApplication::applicationFilePath(),
                            {QLatin1StringView(QTest::currentTestFunction())});
            QVERIFY(num_denso.waitForFinished(60'000));
            QVERIFY2(num_denso.exitCode() == 0, num_denso.readAllStandardOutput());
            return;
        }
        Sistema s;
        frmQR form(s.geral, "Ana", u"Ana"_s);
        form.show();
        const QPixmap codigo = form.imgCodigo->pixmap();
        QVERIFY(codigo.width() >= 2 * 280);
        QVERIFY(codigo.deviceIndependentSize().width() < 300);
    }
};

MORVEX_TESTE(TestSaidaDeContactos)
#include "test_SaidaDeContactos.moc"
