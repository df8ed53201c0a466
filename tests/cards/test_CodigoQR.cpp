// The code that bytes become, and its picture.
#include "cards/CodigoQR.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
// What another program reads from the picture.
QByteArray Lido(const QImage &imagem)
{
    QTemporaryDir pasta;
    const QString ficheiro = pasta.filePath(u"codigo.png"_s);
    if (!imagem.save(ficheiro)) return "not saved";
    QProcess leitor;
    leitor.start(u"zbarimg"_s, {u"--quiet"_s, u"--raw"_s, u"--oneshot"_s, u"-Sbinary"_s, ficheiro});
    if (!leitor.waitForFinished()) return "no reader";
    return leitor.readAllStandardOutput();
}
} // namespace

class TestCodigoQR : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outro_programa_le_os_mesmos_bytes()
    {
        if (QStandardPaths::findExecutable(u"zbarimg"_s).isEmpty()) QSKIP("no zbarimg");
        for (const QByteArray &bytes : {QByteArray("BEGIN:VCARD\r\nFN:Zé; \\, 漢字 😀\r\nEND:VCARD\r\n"),
                                        QByteArray(499, 'x'), QByteArray("um\0zero", 7)})
            QCOMPARE(Lido(CodigoQR(bytes).Imagem(4)), bytes);
    }

    void os_bytes_dizem_o_tamanho()
    {
        // At the level of least redundancy.
        for (const auto &[bytes, lado] : {std::pair{17, 21}, std::pair{18, 25}, std::pair{250, 57},
                                          std::pair{400, 69}, std::pair{499, 77}})
            QCOMPARE(CodigoQR(QByteArray(bytes, 'x')).Lado(), lado);
    }

    // By which a reader finds it: squares in three of its corners, and two dotted lines between them.
    void os_cantos_e_as_linhas_de_medida_estao_no_seu_lugar()
    {
        for (const int bytes : {3, 100, 499}) {
            const CodigoQR codigo(QByteArray(bytes, 'x'));
            const int fim = codigo.Lado() - 7;
            for (const QPoint canto : {QPoint(0, 0), QPoint(fim, 0), QPoint(0, fim)})
                for (int y = 0; y < 7; ++y)
                    for (int x = 0; x < 7; ++x) {
                        const int do_meio = std::max(std::abs(x - 3), std::abs(y - 3));
                        QCOMPARE(codigo.Escuro(canto.x() + x, canto.y() + y), do_meio != 2);
                    }
            for (int i = 8; i < codigo.Lado() - 8; ++i) {
                QCOMPARE(codigo.Escuro(i, 6), i % 2 == 0);
                QCOMPARE(codigo.Escuro(6, i), i % 2 == 0);
            }
        }
    }

    void a_margem_de_quatro_modulos_e_branca()
    {
        const CodigoQR codigo("Ana");
        constexpr int pontos = 5;
        const QImage imagem = codigo.Imagem(pontos);
        const int inteiro = (codigo.Lado() + 8) * pontos;
        QCOMPARE(imagem.size(), QSize(inteiro, inteiro));
        for (int y = 0; y < inteiro; ++y)
            for (int x = 0; x < inteiro; ++x) {
                const int coluna = x / pontos - 4;
                const int linha = y / pontos - 4;
                const bool dentro =
                    coluna >= 0 && linha >= 0 && coluna < codigo.Lado() && linha < codigo.Lado();
                const QRgb esperado = dentro && codigo.Escuro(coluna, linha) ? 0xFF000000U : 0xFFFFFFFFU;
                QCOMPARE(imagem.pixel(x, y), esperado);
            }
        QVERIFY(codigo.Escuro(0, 0)); // where the code begins
    }

    void o_que_nao_cabe_e_nada_sao_falhas()
    {
        VERIFICAR_FALHA(CodigoQR(QByteArray(2954, 'x')), Failure::OutOfMemoryOrRange);
        VERIFICAR_FALHA(CodigoQR(QByteArray{}), Failure::OutOfMemoryOrRange);
        QCOMPARE(teste::Falha_Dita([] { CodigoQR(QByteArray(2954, 'x')); }),
                 (QStringList{u"CodigoQR"_s, u"A code cannot hold 2954 bytes"_s}));
        QCOMPARE(CodigoQR(QByteArray(2953, 'x')).Lado(), 177);
    }
};

MORVEX_TESTE(TestCodigoQR)
#include "test_CodigoQR.moc"
