// The build's own programs that draw for a system whose toolkit reads no drawings.
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>
#include <QTest>

using namespace Qt::StringLiterals;

class TestDesenhos : public QObject
{
    Q_OBJECT

    const QString imagens_ = QStringLiteral(MORVEX_RAIZ "/resources");
    QTemporaryDir pasta_;

    static int Correr(const QString &programa, const QStringList &argumentos, QByteArray *queixa = nullptr)
    {
        QProcess processo;
        processo.start(programa, argumentos);
        processo.waitForFinished();
        if (queixa != nullptr) *queixa = processo.readAllStandardError();
        return processo.exitStatus() == QProcess::NormalExit ? processo.exitCode() : -1;
    }

    static QByteArray Ler(const QString &caminho)
    {
        QFile ficheiro(caminho);
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
    }

    QString Escrito(const QString &nome, const QByteArray &texto) const
    {
        QFile ficheiro(pasta_.filePath(nome));
        if (ficheiro.open(QIODevice::WriteOnly)) ficheiro.write(texto);
        return ficheiro.fileName();
    }

private Q_SLOTS:
    void o_icone_tem_todos_os_tamanhos_e_cada_um_esta_no_ficheiro()
    {
        const QString icone = pasta_.filePath(u"morvex.ico"_s);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICO), {imagens_ + u"/imagens/morvex.svg"_s, icone}), 0);
        const QByteArray bytes = Ler(icone);
        QCOMPARE(bytes.first(6), QByteArray("\0\0\1\0\x8\0", 6));
        quint32 fim = 6 + 8 * 16;
        for (int i = 0; i < 8; ++i) {
            const char *entrada = bytes.constData() + 6 + 16 * i;
            const auto tamanho = qFromLittleEndian<quint32>(entrada + 8);
            QCOMPARE(qFromLittleEndian<quint32>(entrada + 12), fim); // one behind the other
            fim += tamanho;
        }
        QCOMPARE(bytes.size(), static_cast<qsizetype>(fim));

        QImageReader leitor(icone, "ico");
        QList<int> lados;
        for (int i = 0; i < leitor.imageCount(); ++i) {
            QVERIFY(leitor.jumpToImage(i));
            const QImage imagem = leitor.read();
            QVERIFY(imagem.hasAlphaChannel() && qAlpha(imagem.pixel(0, 0)) == 0);
            QVERIFY(qAlpha(imagem.pixel(imagem.width() / 2, imagem.height() / 2)) != 0);
            lados << imagem.width();
        }
        QCOMPARE(lados, (QList<int>{16, 20, 24, 32, 40, 48, 64, 256}));
    }

    // The small ones as points behind a head of forty bytes and before a mask of nothing, the large one compressed.
    void cada_tamanho_do_icone_esta_na_forma_que_o_sistema_le()
    {
        const QString icone = pasta_.filePath(u"formas.ico"_s);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICO), {imagens_ + u"/imagens/morvex.svg"_s, icone}), 0);
        const QByteArray bytes = Ler(icone);
        const QList<std::pair<qsizetype, qsizetype>> lados{{16, 4}, {20, 4}, {24, 4}, {32, 4},
                                                           {40, 8}, {48, 8}, {64, 8}, {256, 0}};
        for (qsizetype i = 0; const auto &[lado, linha_da_mascara] : lados) {
            const QByteArray entrada = bytes.sliced(6 + 16 * i++, 16);
            const auto escrito = static_cast<char>(lado); // 256 is written as 0
            QCOMPARE(entrada.first(8), QByteArray(2, escrito) + QByteArray("\0\0\1\0 \0", 6));
            const QByteArray imagem = bytes.sliced(qFromLittleEndian<qint32>(entrada.constData() + 12),
                                                   qFromLittleEndian<qint32>(entrada.constData() + 8));
            if (lado == 256) {
                QVERIFY(imagem.startsWith("\x89PNG\r\n"));
                continue;
            }
            QByteArray cabeca(40, '\0');
            cabeca[0] = 40;
            cabeca[4] = escrito;
            cabeca[8] = static_cast<char>(2 * lado); // points and mask
            cabeca[12] = 1;
            cabeca[14] = 32;
            QCOMPARE(imagem.first(40), cabeca);
            QCOMPARE(imagem.size(), 40 + 4 * lado * lado + linha_da_mascara * lado);
            QVERIFY(imagem.last(linha_da_mascara * lado).count('\0') == linha_da_mascara * lado);
        }
    }

    void o_desenho_de_um_icone_esta_direito()
    {
        const QString icone = pasta_.filePath(u"direito.ico"_s);
        const QString desenho = Escrito(u"direito.svg"_s,
                                        "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
                                        "<rect width='16' height='8' fill='red'/>"
                                        "<rect y='8' width='8' height='8' fill='blue'/></svg>");
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICO), {desenho, icone}), 0);
        QImageReader leitor(icone, "ico");
        for (int i = 0; i < leitor.imageCount(); ++i) {
            QVERIFY(leitor.jumpToImage(i));
            const QImage imagem = leitor.read();
            const int fim = imagem.width() - 1;
            QCOMPARE(imagem.pixelColor(0, 0), QColor(255, 0, 0));
            QCOMPARE(imagem.pixelColor(fim, 0), QColor(255, 0, 0));
            QCOMPARE(imagem.pixelColor(0, fim), QColor(0, 0, 255));
            QCOMPARE(imagem.pixelColor(fim, fim).alpha(), 0);
        }
    }

    void um_icone_so_fica_do_tamanho_pedido_e_transparente_a_volta()
    {
        const QString icone = pasta_.filePath(u"morvex"_s); // the name does not say what it is
        QCOMPARE(
            Correr(QStringLiteral(DESENHAR_ICONE), {imagens_ + u"/imagens/morvex.svg"_s, u"48"_s, icone}), 0);
        QCOMPARE(QImageReader::imageFormat(icone), QByteArray("png"));
        const QImage imagem(icone);
        QCOMPARE(imagem.size(), QSize(48, 48));
        QCOMPARE(qAlpha(imagem.pixel(0, 0)), 0);
        QVERIFY(qAlpha(imagem.pixel(24, 24)) != 0);
    }

    void um_icone_que_nao_se_pode_fazer_diz_porque()
    {
        const QString nada = Escrito(u"nada.svg"_s, "nothing");
        const QString desenho = imagens_ + u"/imagens/morvex.svg"_s;
        const QString icone = pasta_.filePath(u"nenhum.png"_s);
        QByteArray queixa;
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICONE), {nada, u"48"_s, icone}, &queixa), 1);
        QVERIFY2(queixa.contains("nada.svg cannot be drawn at 48 pixels"), queixa.constData());
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICONE), {desenho, u"0"_s, icone}), 1);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICONE), {desenho, u"48"_s}), 2);
        QVERIFY(!QFile::exists(icone));
    }

    void o_que_nao_e_desenho_nao_da_icone()
    {
        const QString nada = Escrito(u"nada.svg"_s, "nothing");
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICO), {nada, pasta_.filePath(u"n.ico"_s)}), 1);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICO), {}), 2);
    }

    void sem_o_que_fazer_cada_um_diz_como_se_usa()
    {
        const QList<std::pair<QString, QByteArray>> programas{
            {QStringLiteral(DESENHAR_ICO), "desenhar_ico <drawing> <icon.ico>\n"},
            {QStringLiteral(DESENHAR_ICONE), "desenhar_icone <drawing> <pixels> <picture>\n"},
            {QStringLiteral(DESENHAR_PONTOS), "desenhar_pontos <pictures.qrc> <folder>\n"}};
        const QString desenho = imagens_ + u"/imagens/morvex.svg"_s;
        for (const auto &[programa, uso] : programas)
            for (const QStringList &argumentos : {QStringList{}, QStringList{desenho}, QStringList(4, desenho)}) {
                QByteArray queixa;
                QCOMPARE(Correr(programa, argumentos, &queixa), 2);
                QCOMPARE(queixa, uso);
            }
    }

    void onde_nada_se_escreve_termina_com_um()
    {
        const QString desenho = imagens_ + u"/imagens/morvex.svg"_s;
        const QString em_parte_nenhuma = pasta_.filePath(u"nao_ha/icone"_s);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICO), {desenho, em_parte_nenhuma}), 1);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_ICONE), {desenho, u"48"_s, em_parte_nenhuma}), 1);
        const QString lista = Escrito(u"uma.qrc"_s, "<RCC><qresource><file>boa.svg</file></qresource></RCC>");
        Escrito(u"boa.svg"_s, "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'/>");
        const QString ficheiro = Escrito(u"ficheiro"_s, "no folder");
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {lista, ficheiro}), 1);
        QVERIFY(QDir(pasta_.path()).mkpath(u"ocupado/uma.qrc"_s)); // where the list would stand
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {lista, pasta_.filePath(u"ocupado"_s)}), 1);
    }

    void a_lista_feita_tem_o_desenho_e_todos_os_seus_pontos()
    {
        const QString desenho =
            Escrito(u"largo.svg"_s, "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='10'>"
                                    "<rect width='10' height='10' fill='red'/></svg>");
        const QString lista =
            Escrito(u"largos.qrc"_s, "<RCC><qresource><file>largo.svg</file></qresource></RCC>");
        const QString destino = pasta_.filePath(u"largos"_s);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {lista, destino}), 0);
        QString esperada = u"<RCC>\n  <qresource prefix=\"/\">\n"
                           "    <file alias=\"largo.svg\">%1</file>\n"_s.arg(desenho);
        for (const int lado : {16, 20, 24, 32, 40, 48, 64, 96, 128, 256}) {
            const QString pontos = u"largo.svg/%1.png"_s.arg(lado);
            esperada += u"    <file alias=\"pontos/%1\">%2/%1</file>\n"_s.arg(pontos, destino);
            const QImage imagem(destino + u'/' + pontos);
            QCOMPARE(imagem.size(), QSize(lado, lado / 2));
            QCOMPARE(imagem.pixelColor(0, 0), QColor(255, 0, 0));
            QCOMPARE(imagem.pixelColor(lado - 1, lado / 2 - 1).alpha(), 0);
        }
        QCOMPARE(QString::fromUtf8(Ler(destino + u"/largos.qrc"_s)), esperada + u"  </qresource>\n</RCC>\n"_s);
    }

    void cada_desenho_da_lista_fica_em_dez_tamanhos_ao_lado_de_si()
    {
        const QString lista = imagens_ + u"/imagens.qrc"_s;
        const QString destino = pasta_.filePath(u"pontos"_s);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {lista, destino}), 0);
        const QByteArray feita = Ler(destino + u"/imagens.qrc"_s);
        const auto desenhos = Ler(lista).count("<file>");
        QVERIFY(desenhos > 50);
        QCOMPARE(feita.count(".svg\">"), desenhos);
        QCOMPARE(feita.count("<file alias=\"pontos/"), desenhos * 10);
        for (const int lado : {16, 20, 24, 32, 40, 48, 64, 96, 128, 256}) {
            const QImage bandeira(u"%1/imagens/bandeiras/pt.svg/%2.png"_s.arg(destino).arg(lado));
            QCOMPARE(std::max(bandeira.width(), bandeira.height()), lado);
        }
    }

    void um_desenho_estragado_para_a_construcao_e_diz_qual()
    {
        Escrito(u"mau.svg"_s, "<svg");
        const QString lista =
            Escrito(u"lista.qrc"_s, "<RCC><qresource><file>mau.svg</file></qresource></RCC>");
        QByteArray queixa;
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {lista, pasta_.filePath(u"p"_s)}, &queixa), 1);
        QVERIFY2(queixa.contains("mau.svg"), queixa.constData());
    }

    void uma_lista_sem_desenhos_nao_serve()
    {
        const QString lista = Escrito(u"vazia.qrc"_s, "<RCC></RCC>");
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {lista, pasta_.path()}), 1);
        QCOMPARE(Correr(QStringLiteral(DESENHAR_PONTOS), {u"/nao/ha"_s, pasta_.path()}), 1);
    }
};

QTEST_GUILESS_MAIN(TestDesenhos)
#include "test_desenhos.moc"
