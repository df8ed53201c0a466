// The build's own programs that draw for a system whose toolkit reads no drawings.
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

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
