// Pictures that come to the editor of contacts from outside: dropped on the photograph, or pasted.
#include "contacts/Editor.h"
#include "contacts/FotografiaNova.h"
#include "testlib/SeteLinguas.h"
#include "testlib/Teste.h"

#include <QClipboard>
#include <QMimeData>
#include <QStandardPaths>

namespace
{
QImage Imagem(const QColor &cor)
{
    QImage imagem(30, 20, QImage::Format_RGB32);
    imagem.fill(cor);
    return imagem;
}

QString Pintar(const QString &ficheiro, const QColor &cor = Qt::red)
{
    if (!Imagem(cor).save(ficheiro)) qFatal("no picture to test with");
    return ficheiro;
}

QMimeData *Ficheiros(const QStringList &caminhos)
{
    auto *dados = new QMimeData;
    QList<QUrl> urls;
    for (const QString &caminho : caminhos)
        urls << QUrl::fromLocalFile(caminho);
    dados->setUrls(urls);
    return dados;
}

QMimeData *Pontos(const QColor &cor)
{
    auto *dados = new QMimeData;
    dados->setImageData(Imagem(cor));
    return dados;
}

// As the desktop drops it. Returns the action that the form agreed to; none where it took nothing.
Qt::DropAction Largar(QWidget &onde, QMimeData *dados, Qt::DropActions accoes = Qt::CopyAction)
{
    const std::unique_ptr<QMimeData> dono(dados);
    QDragEnterEvent entrar({5, 5}, accoes, dados, Qt::LeftButton, {});
    QApplication::sendEvent(&onde, &entrar);
    if (!entrar.isAccepted()) return Qt::IgnoreAction;
    QDropEvent largar({5, 5}, accoes, dados, Qt::LeftButton, {});
    QApplication::sendEvent(&onde, &largar);
    return largar.isAccepted() ? largar.dropAction() : Qt::IgnoreAction;
}

QColor Cor(const frmAddEdit &form)
{
    const QImage vista = form.Thumb->pixmap().toImage();
    return vista.pixelColor(vista.width() / 2, vista.height() / 2);
}

QAction &Colar(const frmAddEdit &form) { return *form.Thumb->actions().constFirst(); }

struct Pasta : Editor {
    QString Fotografias() const { return s.Ficheiro(u"fotografias"_s); }
    QStringList Guardadas() const { return QDir(Fotografias()).entryList(QDir::Files); }
};
} // namespace

class TestFotografiaNova : public QObject
{
    Q_OBJECT

    // The photograph before stays, and the person reads why.
    static void Recusada(Editor &e, QMimeData *dados, const QString &porque)
    {
        const QString antes = Pintar(e.s.Ficheiro(u"antes.png"_s), Qt::blue);
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, antes}});
        e.Editar([&](frmAddEdit &form) {
            e.s.caixas.Espera_Qualquer(box::stop, form.windowTitle());
            QCOMPARE(Largar(*form.Thumb, dados), Qt::CopyAction);
            QTRY_VERIFY(e.s.caixas.Todas_Vistas());
            QVERIFY2(e.s.caixas.vistas.constLast().startsWith(porque),
                     qPrintable(e.s.caixas.vistas.constLast()));
            QCOMPARE(form.txtFotografia->text(), antes);
            QCOMPARE(Cor(form), QColor(Qt::blue));
        });
        QCOMPARE(e.s.geral.UltimaPastaFotos, QString());
    }

private Q_SLOTS:
    void cleanup() { QGuiApplication::clipboard()->clear(); }

    void um_ficheiro_largado_fica_como_um_escolhido()
    {
        Editor e;
        const QString foto = Pintar(e.s.Ficheiro(u"férias.png"_s));
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana"_s);
            QCOMPARE(Largar(*form.Thumb, Ficheiros({foto})), Qt::CopyAction);
            QTRY_COMPARE(form.txtFotografia->text(), foto);
            QCOMPARE(Cor(form), QColor(Qt::red));
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), foto);
        const QString pasta = e.s.Pasta() + u'/';
        QCOMPARE(e.s.geral.UltimaPastaFotos, pasta);
        QCOMPARE(e.s.geral.ini.Ler_Ini(u"fotografias"_s, u"lastpathpic"_s), pasta);
        QVERIFY(!QDir(e.s.Ficheiro(u"fotografias"_s)).exists());
    }

    void de_varios_ficheiros_conta_o_primeiro()
    {
        Editor e;
        const QString verde = Pintar(e.s.Ficheiro(u"verde.png"_s), Qt::green);
        const QString foto = Pintar(e.s.Ficheiro(u"a.png"_s));
        e.Novo([&](frmAddEdit &form) {
            Largar(*form.Thumb, Ficheiros({verde, foto}));
            QTRY_COMPARE(form.txtFotografia->text(), verde);
            QCOMPARE(Cor(form), QColor(Qt::green));
        });
    }

    void um_ficheiro_sem_imagem_recusa_se()
    {
        Editor e;
        QFile texto(e.s.Ficheiro(u"texto.png"_s));
        QVERIFY(texto.open(QIODevice::WriteOnly) && texto.write("isto são letras") > 0);
        texto.close();
        Recusada(e, Ficheiros({texto.fileName()}), u"Isto não é uma imagem"_s);
    }

    void uma_imagem_cortada_recusa_se()
    {
        Editor e;
        QFile foto(Pintar(e.s.Ficheiro(u"cortada.png"_s)));
        QVERIFY(foto.resize(60));
        Recusada(e, Ficheiros({foto.fileName()}), u"Isto não é uma imagem"_s);
    }

    void um_ficheiro_de_dois_gigabytes_recusa_se()
    {
        Editor e;
        QFile foto(Pintar(e.s.Ficheiro(u"enorme.png"_s)));
        QVERIFY(foto.resize(qint64{2} << 30)); // a picture with a hole behind it
        Recusada(e, Ficheiros({foto.fileName()}), u"Este ficheiro é demasiado grande"_s);
    }

    void um_ficheiro_que_ja_nao_existe_recusa_se()
    {
        Editor e;
        Recusada(e, Ficheiros({e.s.Ficheiro(u"longe.png"_s)}), u"Não há aqui nenhum ficheiro"_s);
    }

    void uma_pasta_recusa_se()
    {
        Editor e;
        Recusada(e, Ficheiros({e.s.Pasta()}), u"Não há aqui nenhum ficheiro"_s);
    }

    void um_endereco_da_rede_recusa_se()
    {
        Editor e;
        auto *dados = new QMimeData;
        dados->setUrls({QUrl(u"https://x.example/foto.png"_s)});
        Recusada(e, dados, u"O programa não vai buscar imagens à rede"_s);
    }

    void uma_pasta_que_o_ficheiro_nao_guarda_inteira_recusa_se_ao_largar()
    {
        Editor e;
        const QString pasta = e.s.Ficheiro(QString(200, u'a') + u'/' + QString(52, u'b'));
        QVERIFY(QDir().mkpath(pasta));
        const QString foto = Pintar(pasta + u"/a.png"_s);
        e.Novo([&](frmAddEdit &form) {
            e.s.caixas.Espera_Qualquer(box::stop, u"Morvex"_s);
            Largar(*form.Thumb, Ficheiros({foto}));
            QTRY_VERIFY(e.s.caixas.Todas_Vistas());
            QCOMPARE(form.txtFotografia->text(), QString());
        });
        QCOMPARE(e.s.geral.UltimaPastaFotos, QString());
    }

    void um_texto_nao_se_larga_na_fotografia()
    {
        Editor e;
        e.Novo([&](frmAddEdit &form) {
            auto *dados = new QMimeData;
            dados->setText(u"olá"_s);
            QCOMPARE(Largar(*form.Thumb, dados), Qt::IgnoreAction);
        });
    }

    void o_que_se_larga_copia_se_e_nunca_se_move()
    {
        Editor e;
        const QString foto = Pintar(e.s.Ficheiro(u"a.png"_s));
        e.Novo([&](frmAddEdit &form) {
            QCOMPARE(Largar(*form.Thumb, Ficheiros({foto}), Qt::MoveAction), Qt::IgnoreAction);
            QCOMPARE(Largar(*form.Thumb, Ficheiros({foto}), Qt::MoveAction | Qt::CopyAction), Qt::CopyAction);
        });
    }

    void pontos_sem_ficheiro_guardam_se_ao_lado_da_base_com_um_nome_livre()
    {
        Pasta e;
        QVERIFY(QDir().mkpath(e.Fotografias()));
        const QString alheia = Pintar(e.Fotografias() + u"/fotografia1.png"_s, Qt::blue);
        const QString nova = e.Fotografias() + u"/fotografia2.png"_s;
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana"_s);
            Largar(*form.Thumb, Pontos(Qt::red));
            QTRY_COMPARE(form.txtFotografia->text(), nova);
            QCOMPARE(Cor(form), QColor(Qt::red));
            form.cmdOk->click();
        });
        QCOMPARE(e.Coluna(u"Fotografia"_s), nova);
        QCOMPARE(QImage(nova, "PNG").pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(QImage(alheia).pixelColor(0, 0), QColor(Qt::blue));
        QCOMPARE(e.janela.Thumb->pixmap().toImage().pixelColor(10, 10), QColor(Qt::red));
        QCOMPARE(e.s.geral.UltimaPastaFotos, QString()); // nobody chose that folder
    }

    void do_endereco_com_pontos_ficam_os_pontos()
    {
        Pasta e;
        e.Novo([&](frmAddEdit &form) {
            auto *dados = Pontos(Qt::green);
            dados->setUrls({QUrl(u"https://x.example/foto.png"_s)});
            Largar(*form.Thumb, dados);
            QTRY_COMPARE(form.txtFotografia->text(), e.Fotografias() + u"/fotografia1.png"_s);
            QCOMPARE(Cor(form), QColor(Qt::green));
        });
    }

    void sem_lugar_para_a_guardar_a_imagem_recusa_se()
    {
        Editor e;
        QFile ficheiro(e.s.Ficheiro(u"fotografias"_s)); // where the folder would be
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        Recusada(e, Pontos(Qt::red), u"Não foi possível guardar a imagem nesta pasta"_s);
    }

    void so_fica_o_ficheiro_da_fotografia_que_o_contacto_guarda()
    {
        Pasta e;
        e.Novo([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana"_s);
            Largar(*form.Thumb, Pontos(Qt::red));
            Largar(*form.Thumb, Pontos(Qt::green));
            QTRY_VERIFY(form.txtFotografia->text().endsWith(u"/fotografia2.png"_s));
            QCOMPARE(e.Guardadas().size(), 2);
            form.cmdOk->click();
        });
        QCOMPARE(e.Guardadas(), QStringList(u"fotografia2.png"_s));
    }

    void a_que_da_lugar_a_outra_vai_se_quando_nenhum_contacto_a_guarda_data()
    {
        QTest::addColumn<QString>("ficheiro"); // that the contact kept, in the folder of the pictures
        QTest::addColumn<bool>("de_outro");    // another contact keeps it too
        QTest::addColumn<bool>("confirma");
        QTest::addColumn<bool>("fica");
        QTest::newRow("pasted") << u"fotografia1.png"_s << false << true << false;
        QTest::newRow("another contact's too") << u"fotografia1.png"_s << true << true << true;
        QTest::newRow("cancelled") << u"fotografia1.png"_s << false << false << true;
        QTest::newRow("a name that somebody gave") << u"fotografia1 (2).png"_s << false << true << true;
        QTest::newRow("another folder") << u"../fotografia1.png"_s << false << true << true;
    }
    void a_que_da_lugar_a_outra_vai_se_quando_nenhum_contacto_a_guarda()
    {
        QFETCH(QString, ficheiro);
        QFETCH(bool, de_outro);
        QFETCH(bool, confirma);
        QFETCH(bool, fica);
        Pasta e;
        QVERIFY(QDir().mkpath(e.Fotografias()));
        const QString antiga = Pintar(QDir::cleanPath(e.Fotografias() + u'/' + ficheiro));
        const QString nova = Pintar(e.s.Ficheiro(u"nova.png"_s), Qt::blue);
        if (de_outro) e.s.Novo_Contacto({{u"Nome"_s, u"Zita"_s}, {u"Fotografia"_s, antiga}});
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, antiga}});
        e.Editar([&](frmAddEdit &form) {
            Largar(*form.Thumb, Ficheiros({nova}));
            QTRY_COMPARE(form.txtFotografia->text(), nova);
            (confirma ? form.cmdOk : form.cmdCancelar)->click();
        });
        QCOMPARE(QFile::exists(antiga), fica);
        QVERIFY(QFile::exists(nova));
    }

    void a_que_o_contacto_continua_a_guardar_fica()
    {
        Pasta e;
        QVERIFY(QDir().mkpath(e.Fotografias()));
        const QString foto = Pintar(e.Fotografias() + u"/fotografia1.png"_s);
        e.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, foto}});
        e.Editar([&](frmAddEdit &form) {
            form.txtNome->setText(u"Ana Maria"_s);
            form.cmdOk->click();
        });
        QVERIFY(QFile::exists(foto));
    }

    void cancelar_nao_deixa_ficheiro_nenhum()
    {
        Pasta e;
        e.Novo([&](frmAddEdit &form) {
            Largar(*form.Thumb, Pontos(Qt::red));
            QTRY_VERIFY(!form.txtFotografia->text().isEmpty());
            QCOMPARE(e.Guardadas().size(), 1);
            form.cmdCancelar->click();
        });
        QCOMPARE(e.Guardadas(), QStringList());
    }

    void ctrl_v_cola_a_fotografia_onde_nenhum_campo_quer_o_texto_data()
    {
        QTest::addColumn<QString>("controlo");
        for (const char *controlo : {"txtNome", "txtFotografia", "txtObs", "ComboGrupos", "cmd_foto"})
            QTest::newRow(controlo) << controlo;
    }
    void ctrl_v_cola_a_fotografia_onde_nenhum_campo_quer_o_texto()
    {
        QFETCH(QString, controlo);
        Pasta e;
        QGuiApplication::clipboard()->setMimeData(Pontos(Qt::red));
        e.Novo([&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            auto *com_foco = form.findChild<QWidget *>(controlo);
            com_foco->setFocus();
            QTest::keyClick(com_foco, Qt::Key_V, Qt::ControlModifier);
            QTRY_COMPARE(form.txtFotografia->text(), e.Fotografias() + u"/fotografia1.png"_s);
            QCOMPARE(Cor(form), QColor(Qt::red));
        });
    }

    void um_texto_na_area_de_transferencia_e_do_campo()
    {
        Pasta e;
        auto *dados = Pontos(Qt::red);
        dados->setText(u"Berta"_s);
        QGuiApplication::clipboard()->setMimeData(dados);
        e.Novo([&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QTest::keyClick(form.txtNome, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(form.txtNome->text(), u"Berta"_s);
            QCOMPARE(form.txtFotografia->text(), QString());
        });
        QCOMPARE(e.Guardadas(), QStringList());
    }

    void a_entrada_do_menu_da_fotografia_cola_a_quando_ha_alguma()
    {
        Editor e;
        const QString foto = Pintar(e.s.Ficheiro(u"a.png"_s));
        QGuiApplication::clipboard()->setText(u"só texto"_s);
        e.Novo([&](frmAddEdit &form) {
            QCOMPARE(form.Thumb->contextMenuPolicy(), Qt::ActionsContextMenu);
            QVERIFY(!Colar(form).isEnabled());
            QGuiApplication::clipboard()->setMimeData(Ficheiros({foto})); // copied in the file manager
            QVERIFY(Colar(form).isEnabled());
            Colar(form).trigger();
            QTRY_COMPARE(form.txtFotografia->text(), foto);
        });
    }

    void a_entrada_tem_nome_em_cada_lingua_data()
    {
        Nas_Sete_Linguas({u"Co&lar fotografia"_s, u"Co&lar foto"_s, u"&Paste Photograph"_s,
                          u"&Pegar fotografía"_s, u"I&ncolla fotografia"_s, u"Co&ller la photo"_s,
                          u"Foto &einfügen"_s});
    }
    void a_entrada_tem_nome_em_cada_lingua()
    {
        QFETCH(QString, lingua);
        QFETCH(QString, legenda);
        Editor e;
        e.s.geral.IdiomaActual = lingua;
        e.Novo([&](frmAddEdit &form) { QCOMPARE(Colar(form).text(), legenda); });
    }

    void a_escolha_comeca_na_pasta_da_ultima_ou_na_das_imagens()
    {
        Editor e;
        const QString imagens = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        QVERIFY(!imagens.isEmpty());
        const QString foto = Pintar(e.s.Ficheiro(u"a.png"_s));
        e.s.dialogos.textos = {foto, std::nullopt};
        e.Novo([&](frmAddEdit &form) {
            form.cmd_foto->click();
            form.cmd_foto->click();
        });
        QVERIFY(e.s.dialogos.perguntas.constFirst().endsWith(u" @ "_s + imagens));
        QVERIFY(e.s.dialogos.perguntas.constLast().endsWith(u" @ "_s + e.s.Pasta() + u'/'));
    }
};

MORVEX_TESTE(TestFotografiaNova)
#include "test_FotografiaNova.moc"
