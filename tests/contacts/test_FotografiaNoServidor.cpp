// A picture that is chosen, dropped or pasted in the editor while the data lie on a server: it goes into the
// database, so that every desk sees it.
#include "contacts/Editor.h"
#include "testlib/ComoNumServidor.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/Teste.h"

#include <QClipboard>
#include <QMimeData>

namespace
{
struct NoServidor : Editor {
    NoServidor()
    {
        Como_Num_Servidor(s);
        QFile f(s.Ficheiro(u"foto.png"_s));
        if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size()) qFatal("no file to test with");
    }

    void Escolher_Ficheiro(frmAddEdit &form, const QString &ficheiro)
    {
        s.dialogos.textos << s.Ficheiro(ficheiro);
        form.cmd_foto->click();
    }
    QStringList Guardadas() { return s.Linhas(u"SELECT Nome FROM TblFotografias ORDER BY Nome"_s); }

    const QByteArray bytes = Bytes_De_Imagem({40, 30});
    const QString nome = Nome_Na_Base(bytes, "png");
};
} // namespace

class TestFotografiaNoServidor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QGuiApplication::clipboard()->clear(); }

    void um_ficheiro_escolhido_vai_para_a_base_com_o_contacto_novo()
    {
        NoServidor e;
        e.Novo([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            QCOMPARE(form.txtFotografia->text(), e.nome);
            QCOMPARE(form.Thumb->pixmap().toImage().pixel(5, 5), qRgb(200, 0, 0));
            QCOMPARE(e.Guardadas(), QStringList()); // not before the contact is written
            QCOMPARE(e.s.geral.UltimaPastaFotos, e.s.Pasta() + u'/');
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), e.nome);
        QCOMPARE(FotografiasDaBase(e.s.geral.de).Ler(e.nome), e.bytes);
    }

    void um_ficheiro_escolhido_vai_para_a_base_com_o_contacto_editado()
    {
        NoServidor e;
        e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        e.Editar([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), e.nome);
        QCOMPARE(FotografiasDaBase(e.s.geral.de).Ler(e.nome), e.bytes);
    }

    void um_ficheiro_largado_tambem()
    {
        NoServidor e;
        e.Novo([&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            auto *dados = new QMimeData;
            dados->setUrls({QUrl::fromLocalFile(e.s.Ficheiro(u"foto.png"_s))});
            QGuiApplication::clipboard()->setMimeData(dados); // the ways in meet behind the form's edge
            form.cmd_foto->setFocus();
            QTest::keyClick(form.cmd_foto, Qt::Key_V, Qt::ControlModifier);
            QTRY_COMPARE(form.txtFotografia->text(), e.nome);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), e.nome);
        QCOMPARE(e.Guardadas(), QStringList{e.nome});
    }

    void pontos_colados_vao_para_a_base_e_nao_fazem_ficheiro()
    {
        NoServidor e;
        e.s.geral.UltimaPastaFotos = u"/antes/"_s;
        e.Novo([&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QImage imagem(8, 8, QImage::Format_RGB32);
            imagem.fill(Qt::green);
            QGuiApplication::clipboard()->setImage(imagem);
            QTest::keyClick(form.txtNome, Qt::Key_V, Qt::ControlModifier);
            QTRY_VERIFY(E_Da_Base(form.txtFotografia->text()));
            form.cmdOk->click();
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(e.Guardadas(), QStringList{e.Coluna(u"Fotografia"_s)});
        QVERIFY(!QFile::exists(e.s.Ficheiro(u"fotografias"_s)));
        QCOMPARE(e.s.geral.UltimaPastaFotos, u"/antes/"_s);
    }

    void cancelar_nada_deixa_na_base()
    {
        NoServidor e;
        e.Novo([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            form.cmdCancelar->click();
        });
        QCOMPARE(e.Guardadas(), QStringList());
    }

    void um_contacto_que_a_base_recusa_nao_deixa_la_a_fotografia()
    {
        NoServidor e;
        e.s.Recusar(u"INSERT"_s, u"TblLista"_s);
        e.Novo([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            e.s.caixas.Espera_Erro(Failure::StoreError);
            QTest::keyClick(form.cmdOk, Qt::Key_Space);
            QVERIFY(form.isVisible());
            QCOMPARE(form.txtFotografia->text(), e.nome);
            QCOMPARE(e.Guardadas(), QStringList());
            e.s.Deixar_De_Recusar();
            form.cmdOk->click();
        });
        QCOMPARE(e.Guardadas(), QStringList{e.nome});
    }

    void de_duas_escolhidas_so_a_que_ficou_se_guarda()
    {
        NoServidor e;
        QVERIFY(QImage::fromData(Bytes_De_Imagem({9, 9})).save(e.s.Ficheiro(u"outra.png"_s)));
        e.Novo([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"outra.png"_s);
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            form.cmdOk->click();
        });
        QCOMPARE(e.Guardadas(), QStringList{e.nome});
    }

    void o_que_nao_e_imagem_recusa_se_e_a_fotografia_fica()
    {
        NoServidor e;
        QVERIFY(QFile::copy(e.s.Ficheiro(u"config.ini"_s), e.s.Ficheiro(u"letras.png"_s)));
        e.Novo([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            e.s.caixas.Espera_Qualquer(box::stop, form.windowTitle());
            e.Escolher_Ficheiro(form, u"letras.png"_s);
            QCOMPARE(form.txtFotografia->text(), e.nome);
            e.s.caixas.Espera_Qualquer(box::stop, form.windowTitle());
            e.Escolher_Ficheiro(form, u"nenhuma.png"_s);
            QCOMPARE(form.txtFotografia->text(), e.nome);
        });
        QVERIFY(e.s.caixas.Todas_Vistas());
    }

    void um_caminho_escrito_a_mao_fica_como_se_escreveu()
    {
        NoServidor e;
        e.Novo([&](frmAddEdit &form) {
            form.txtFotografia->setText(u"fotos/ana.png"_s);
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), u"fotos/ana.png"_s);
        QCOMPARE(e.Guardadas(), QStringList());
    }

    void a_fotografia_por_guardar_ve_se_quando_os_dois_postos_se_encontram()
    {
        NoServidor e;
        const int id = e.Mostrar({{u"Nome"_s, u"Ana"_s}});
        e.Editar([&](frmAddEdit &form) {
            e.Escolher_Ficheiro(form, u"foto.png"_s);
            e.s.Escrever(u"UPDATE TblLista SET Fotografia='/dele.png' WHERE ID=%1"_s.arg(id));
            accoes::Quando_Abrir<frmConflito>([](frmConflito &conflito) {
                const QVariant minha = conflito.lvCampos->topLevelItem(0)->data(2, Qt::DecorationRole);
                QCOMPARE(qvariant_cast<QPixmap>(minha).toImage().pixel(5, 5), qRgb(200, 0, 0));
                conflito.cmdGuardar->click();
            });
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), e.nome);
        QCOMPARE(e.Guardadas(), QStringList{e.nome});
    }
};

MORVEX_TESTE(TestFotografiaNoServidor)
#include "test_FotografiaNoServidor.moc"
