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

// Whether it may be dropped where it is moved to, once it has come in. Each move comes with the answer to the one before.
bool Passar(QWidget &onde, QMimeData *dados, Qt::DropActions accoes, bool antes)
{
    const std::unique_ptr<QMimeData> dono(dados);
    QDragEnterEvent entrar({5, 5}, Qt::CopyAction, dados, Qt::LeftButton, {});
    QApplication::sendEvent(&onde, &entrar);
    QDragMoveEvent mover({6, 6}, accoes, dados, Qt::LeftButton, {});
    mover.setAccepted(antes);
    QApplication::sendEvent(&onde, &mover);
    return mover.isAccepted();
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

    void um_ficheiro_de_cem_mebibytes_ainda_serve()
    {
        Sistema s;
        QFile foto(Pintar(s.Ficheiro(u"grande.png"_s)));
        const std::unique_ptr<QMimeData> dados(Ficheiros({foto.fileName()}));
        FotografiaNova num_ficheiro(s.geral, FotografiaNova::Onde::Ficheiro);
        FotografiaNova na_base(s.geral, FotografiaNova::Onde::Base);
        const auto recusa = [](const std::function<void()> &tomar) {
            try {
                tomar();
            } catch (const FotografiaRecusada &recusada) {
                return recusada.Texto(u"PortuguesPT"_s).section(u'.', 0, 0);
            }
            return QString();
        };
        QVERIFY(foto.resize(104857600));
        QCOMPARE(recusa([&] { num_ficheiro.Caminho(*dados); }), QString());
        QVERIFY(foto.resize(104857601));
        const QString grande = u"Este ficheiro é demasiado grande para uma fotografia"_s;
        QCOMPARE(recusa([&] { num_ficheiro.Caminho(*dados); }), grande);
        QCOMPARE(recusa([&] { na_base.De_Ficheiro(foto.fileName()); }), grande);
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
            QVERIFY(!Passar(*form.Thumb, Ficheiros({foto}), Qt::MoveAction, true));
            QVERIFY(Passar(*form.Thumb, Ficheiros({foto}), Qt::CopyAction, false));
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
        QCOMPARE(QDir(e.Fotografias()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
                 (QStringList{u"fotografia1.png"_s, u"fotografia2.png"_s}));
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

    void cada_recusa_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("nao_e_imagem");
        QTest::addColumn<QString>("nao_ha_ficheiro");
        QTest::addColumn<QString>("grande_demais");
        QTest::addColumn<QString>("na_rede");
        QTest::addColumn<QString>("nao_guardada");
        QTest::newRow("PortuguesPT")
            << u"Isto não é uma imagem que o programa saiba mostrar. A fotografia fica como estava."_s
            << u"Não há aqui nenhum ficheiro que se possa ler. A fotografia fica como estava."_s
            << u"Este ficheiro é demasiado grande para uma fotografia. A fotografia fica como estava."_s
            << u"O programa não vai buscar imagens à rede. Guarde a imagem num ficheiro e use esse. A fotografia fica como estava."_s
            << u"Não foi possível guardar a imagem nesta pasta. A fotografia fica como estava."_s;
        QTest::newRow("PortuguesBR")
            << u"Isto não é uma imagem que o programa saiba mostrar. A foto fica como estava."_s
            << u"Não há aqui nenhum arquivo que se possa ler. A foto fica como estava."_s
            << u"Este arquivo é grande demais para uma foto. A foto fica como estava."_s
            << u"O programa não busca imagens na rede. Salve a imagem em um arquivo e use-o. A foto fica como estava."_s
            << u"Não foi possível salvar a imagem nesta pasta. A foto fica como estava."_s;
        QTest::newRow("InglesUK")
            << u"This is no picture that the program can show. The photograph stays as it was."_s
            << u"There is no file here that can be read. The photograph stays as it was."_s
            << u"This file is too large for a photograph. The photograph stays as it was."_s
            << u"The program fetches no pictures from the network. Save the picture to a file and use that one. The photograph stays as it was."_s
            << u"The picture could not be saved in this folder. The photograph stays as it was."_s;
        QTest::newRow("EspanholES")
            << u"Esto no es una imagen que el programa sepa mostrar. La fotografía queda como estaba."_s
            << u"Aquí no hay ningún archivo que se pueda leer. La fotografía queda como estaba."_s
            << u"Este archivo es demasiado grande para una fotografía. La fotografía queda como estaba."_s
            << u"El programa no descarga imágenes de la red. Guarde la imagen en un archivo y use este. La fotografía queda como estaba."_s
            << u"No se pudo guardar la imagen en esta carpeta. La fotografía queda como estaba."_s;
        QTest::newRow("ItalianoIT")
            << u"Questa non è un’immagine che il programma sappia mostrare. La fotografia resta com’era."_s
            << u"Qui non c’è alcun file che si possa leggere. La fotografia resta com’era."_s
            << u"Questo file è troppo grande per una fotografia. La fotografia resta com’era."_s
            << u"Il programma non scarica immagini dalla rete. Salvare l’immagine in un file e usare quello. La fotografia resta com’era."_s
            << u"Non è stato possibile salvare l’immagine in questa cartella. La fotografia resta com’era."_s;
        QTest::newRow("FrancesFR")
            << u"Ceci n’est pas une image que le programme sache afficher. La photo reste telle quelle."_s
            << u"Il n’y a ici aucun fichier lisible. La photo reste telle quelle."_s
            << u"Ce fichier est trop volumineux pour une photo. La photo reste telle quelle."_s
            << u"Le programme ne télécharge pas d’images. Enregistrez l’image dans un fichier et utilisez celui-ci. La photo reste telle quelle."_s
            << u"L’image n’a pas pu être enregistrée dans ce dossier. La photo reste telle quelle."_s;
        QTest::newRow("AlemaoDE")
            << u"Dies ist kein Bild, das das Programm anzeigen kann. Das Foto bleibt, wie es war."_s
            << u"Hier ist keine Datei, die gelesen werden kann. Das Foto bleibt, wie es war."_s
            << u"Diese Datei ist zu groß für ein Foto. Das Foto bleibt, wie es war."_s
            << u"Das Programm lädt keine Bilder aus dem Netz. Speichern Sie das Bild in einer Datei und nehmen Sie diese. Das Foto bleibt, wie es war."_s
            << u"Das Bild konnte in diesem Ordner nicht gespeichert werden. Das Foto bleibt, wie es war."_s;
    }
    void cada_recusa_esta_escrita_em_cada_lingua()
    {
        Sistema s;
        FotografiaNova nova(s.geral, FotografiaNova::Onde::Ficheiro);
        const auto dita = [&](const QMimeData &dados) {
            try {
                return u"taken: "_s + nova.Caminho(dados);
            } catch (const FotografiaRecusada &recusada) {
                return recusada.Texto(QString::fromLatin1(QTest::currentDataTag()));
            }
        };
        const auto esperada = [](const char *coluna, const QString &sobre) {
            return *static_cast<QString *>(QTest::qData(coluna, qMetaTypeId<QString>())) + u"\r\n\r\n"_s +
                   sobre;
        };
        QCOMPARE(dita(QMimeData()), esperada("nao_e_imagem", QString()));
        const std::unique_ptr<QMimeData> longe(Ficheiros({s.Ficheiro(u"longe.png"_s)}));
        QCOMPARE(dita(*longe), esperada("nao_ha_ficheiro", s.Ficheiro(u"longe.png"_s)));
        QFile enorme(s.Ficheiro(u"enorme.png"_s));
        QVERIFY(enorme.open(QIODevice::WriteOnly) && enorme.resize(qint64{100} * 1024 * 1024 + 1));
        const std::unique_ptr<QMimeData> grande(Ficheiros({enorme.fileName()}));
        QCOMPARE(dita(*grande), esperada("grande_demais", enorme.fileName()));
        QVERIFY(enorme.resize(qint64{100} * 1024 * 1024)); // just not too large, but no picture
        QCOMPARE(dita(*grande), esperada("nao_e_imagem", enorme.fileName()));
        QMimeData na_rede;
        na_rede.setUrls({QUrl(u"http://fotos.example/ana.png"_s)});
        QCOMPARE(dita(na_rede), esperada("na_rede", u"http://fotos.example/ana.png"_s));
        QFile no_caminho(s.Ficheiro(u"fotografias"_s));
        QVERIFY(no_caminho.open(QIODevice::WriteOnly));
        const std::unique_ptr<QMimeData> pontos(Pontos(Qt::red));
        QCOMPARE(dita(*pontos), esperada("nao_guardada", no_caminho.fileName()));
    }

    // A name like one given here that somebody else chose is not taken for one.
    void so_o_ficheiro_de_um_nome_dado_aqui_se_apaga_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<bool>("apaga_se");
        QTest::newRow("given here") << u"fotografias/fotografia1.png"_s << true;
        QTest::newRow("of two digits") << u"fotografias/fotografia10.png"_s << true;
        QTest::newRow("with a nought before") << u"fotografias/fotografia01.png"_s << false;
        QTest::newRow("without a number") << u"fotografias/fotografia.png"_s << false;
        QTest::newRow("another kind") << u"fotografias/fotografia1.jpg"_s << false;
        QTest::newRow("longer at the end") << u"fotografias/fotografia1.png.bak"_s << false;
        QTest::newRow("longer in front") << u"fotografias/minha_fotografia1.png"_s << false;
        QTest::newRow("in another folder") << u"fotografia1.png"_s << false;
    }
    void so_o_ficheiro_de_um_nome_dado_aqui_se_apaga()
    {
        QFETCH(QString, nome);
        QFETCH(bool, apaga_se);
        Sistema s;
        QVERIFY(QDir(s.Pasta()).mkpath(u"fotografias"_s));
        QFile ficheiro(s.Ficheiro(nome));
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.close();
        FotografiaNova(s.geral, FotografiaNova::Onde::Ficheiro).Abandonar(ficheiro.fileName());
        QCOMPARE(ficheiro.exists(), !apaga_se);
        QCOMPARE(s.geral.de.Rs("cmdProcurarFotografia").State(), Recordset::Closed);
    }

    void os_pontos_tomam_o_primeiro_numero_livre_e_arrumar_deixa_o_que_fica()
    {
        Sistema s;
        QVERIFY(QDir(s.Pasta()).mkpath(u"fotografias"_s));
        QFile ocupado(s.Ficheiro(u"fotografias/fotografia2.png"_s));
        QVERIFY(ocupado.open(QIODevice::WriteOnly));
        FotografiaNova nova(s.geral, FotografiaNova::Onde::Ficheiro);
        const std::unique_ptr<QMimeData> pontos(Pontos(Qt::red));
        const QString primeira = nova.Caminho(*pontos);
        const QString segunda = nova.Caminho(*pontos);
        QCOMPARE(primeira, s.Ficheiro(u"fotografias/fotografia1.png"_s));
        QCOMPARE(segunda, s.Ficheiro(u"fotografias/fotografia3.png"_s));
        QVERIFY(nova.Feita_Aqui(primeira) && nova.Feita_Aqui(segunda) &&
                !nova.Feita_Aqui(ocupado.fileName()));
        nova.Arrumar(segunda);
        QVERIFY(!QFile::exists(primeira));
        QVERIFY(QFile::exists(segunda) && ocupado.exists());
        QVERIFY(!nova.Feita_Aqui(segunda));
    }
};

MORVEX_TESTE(TestFotografiaNova)
#include "test_FotografiaNova.moc"
