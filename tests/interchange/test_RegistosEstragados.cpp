// Text files of an earlier release that somebody harmed: beside a plain walk over their bytes, nothing of a
// line is lost, and what can't be cut ends the import with every record before it in the database.
#include "interchange/frmImportar2.h"
#include "interchange/Intercambio.h"
#include "interchange/RegistoMorvex.h"
#include "controls/ListBox.h"
#include "platform/TextEncoding.h"
#include "session/Main.h"
#include "testlib/CopiaEstragada.h"
#include "testlib/Estragos.h"
#include "testlib/MemoriaPedida.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <random>

using namespace Qt::StringLiterals;

namespace
{
constexpr char separadores[] = "\xA5\xA6\xB6\xE6\xDE\xA2\xA7\xC6\xBF\xA1\xFF\xB1\xDF\xF8\xB5\xA4";
constexpr int campos = 16;

QByteArray Ler_Ficheiro(const QString &nome)
{
    QFile ficheiro(QFINDTESTDATA(u"fixtures/dat/"_s + nome));
    if (!ficheiro.open(QIODevice::ReadOnly)) qFatal("%s cannot be read", qPrintable(nome));
    return ficheiro.readAll();
}

QString Texto(const QByteArray &bytes) { return decodedText(bytes, "windows-1252").text; }

// The lines, as a walk from byte to byte finds them.
QList<QByteArray> Linhas_De(const QByteArray &bytes)
{
    QList<QByteArray> linhas;
    QByteArray linha;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\r') {
            linha += bytes[i];
            continue;
        }
        if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        linhas << linha;
        linha.clear();
    }
    return linha.isEmpty() ? linhas : linhas << linha;
}

QList<QByteArray> Registos(const QByteArray &bytes)
{
    QList<QByteArray> registos = Linhas_De(bytes).mid(1);
    registos.removeAll(QByteArray());
    return registos;
}

// The fields of a record, of which the last may be empty for want of its separator; none where one of the
// others is missing.
QList<QByteArray> Campos(const QByteArray &registo)
{
    QList<QByteArray> achados;
    qsizetype inicio = 0;
    for (int i = 0; i < campos; ++i) {
        const qsizetype fim = registo.indexOf(separadores[i], inicio);
        if (fim < 0 && i + 1 < campos) return {};
        achados << (fim < 0 ? QByteArray() : registo.mid(inicio, fim - inicio));
        inicio = fim + 1;
    }
    return achados;
}

// What the format lives on, where it doesn't belong.
QByteArray Semear_Marcas(QByteArray bytes, std::mt19937 &acaso)
{
    static const QByteArray marcas = QByteArray(separadores) + QByteArray("\r\n\0\x81 ", 5);
    for (int i = Ao_Acaso(acaso, 6); i >= 0; --i)
        bytes.insert(Ao_Acaso(acaso, bytes.size() + 1), marcas[Ao_Acaso(acaso, marcas.size())]);
    return bytes;
}

QByteArray Trocar_Pedacos(QByteArray bytes, std::mt19937 &acaso)
{
    for (int i = Ao_Acaso(acaso, 4); i >= 0; --i) {
        const qsizetype tamanho = 1 + Ao_Acaso(acaso, bytes.size() / 2);
        const qsizetype um = Ao_Acaso(acaso, bytes.size() - tamanho + 1);
        const QByteArray pedaco = bytes.mid(um, tamanho);
        bytes.remove(um, tamanho).insert(Ao_Acaso(acaso, bytes.size() + 1), pedaco);
    }
    return bytes;
}

// What is to be stored of a file: the fields of its records up to the first that can't be cut.
struct Esperado {
    explicit Esperado(const QByteArray &bytes)
    {
        for (const QByteArray &registo : Registos(bytes)) {
            const QList<QByteArray> cortado = Campos(registo);
            termina = cortado.isEmpty();
            if (termina) return;
            registos << cortado;
        }
    }
    QList<QList<QByteArray>> registos;
    bool termina = false;
};

// A text as the database has it: no server keeps the character U+0000.
QString Guardado(const QByteArray &bytes)
{
    const QString texto = Texto(bytes);
    return Sistema::Num_Servidor() ? QString(texto).remove(QChar(0)) : texto;
}
} // namespace

Q_DECLARE_METATYPE(Estrago)

class TestRegistosEstragados : public QObject
{
    Q_OBJECT

    static void Colunas()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<Estrago>("estrago");
        QTest::addColumn<int>("copias");
    }
    static void Acrescentar(const QString &nome, int copias)
    {
        const QByteArray rotulo = nome.toLatin1();
        QTest::addRow("%s, bits", rotulo.constData()) << nome << Estrago(Trocar_Bits) << copias;
        QTest::addRow("%s, cut", rotulo.constData()) << nome << Estrago(Cortar) << copias;
        QTest::addRow("%s, marks", rotulo.constData()) << nome << Estrago(Semear_Marcas) << copias;
        QTest::addRow("%s, pieces moved", rotulo.constData()) << nome << Estrago(Trocar_Pedacos) << copias;
    }

    static void Comparar_Registo(const QString &registo, const QByteArray &bytes)
    {
        QCOMPARE(registo, Texto(bytes));
        QCOMPARE(registo.size(), bytes.size());
        const QList<QByteArray> esperados = Campos(bytes);
        if (esperados.isEmpty()) {
            VERIFICAR_FALHA(registo_morvex::Separar(registo), 5);
            return;
        }
        const auto achados = registo_morvex::Separar(registo);
        for (int i = 0; i < campos; ++i)
            QCOMPARE(achados[static_cast<std::size_t>(i)], Texto(esperados[i]));
    }

private Q_SLOTS:
    // The same five thousand copies at every run.
    void de_um_ficheiro_estragado_nada_se_perde_alem_do_que_se_sabe_data()
    {
        Colunas();
        for (const auto *nome : {"depois_do_16.dat", "duplicados.dat", "euro_aspas.dat", "lf_no_campo.dat",
                                 "linhas_vazias.dat", "meses.dat", "normal.dat", "para_no_oitavo.dat",
                                 "so_cr.dat", "texto_sem_16.dat", "uma_linha.dat", "utf8_por_engano.dat"})
            Acrescentar(QLatin1String(nome), 104);
        for (const auto *nome : {"linhas_4999.dat", "linhas_5000.dat"})
            Acrescentar(QLatin1String(nome), 1);
    }
    void de_um_ficheiro_estragado_nada_se_perde_alem_do_que_se_sabe()
    {
        constexpr qint64 paciencia = 2000; // ms a copy
        constexpr std::size_t muita_memoria = std::size_t{256} << 20;
        constexpr qsizetype linhas_a_mais = 5000;
        QFETCH(QString, nome);
        QFETCH(Estrago, estrago);
        QFETCH(int, copias);
        const QByteArray sao = Ler_Ficheiro(nome);
        std::mt19937 acaso(20040517);
        CopiaEstragada copia(u"copia.dat"_s);
        for (int i = 0; i < copias; ++i) {
            const QByteArray bytes = estrago(sao, acaso);
            const QString caminho = copia.Guardar(bytes);
            const memoria::Medida medida;
            QElapsedTimer relogio;
            relogio.start();
            if (Linhas_De(bytes).size() >= linhas_a_mais) {
                VERIFICAR_FALHA(registo_morvex::Ler_Linhas(caminho), Failure::SubscriptOutOfRange);
                continue;
            }
            const QStringList registos = registo_morvex::Registos(registo_morvex::Ler_Linhas(caminho));
            const QList<QByteArray> esperados = Registos(bytes);
            QCOMPARE(registos.size(), esperados.size());
            for (qsizetype j = 0; j < registos.size(); ++j)
                Comparar_Registo(registos[j], esperados[j]);
            QVERIFY2(relogio.elapsed() < paciencia, qPrintable(u"copy %1 took too long"_s.arg(i)));
            QVERIFY2(medida.Maximo() < muita_memoria, qPrintable(u"copy %1 took too much"_s.arg(i)));
        }
    }

    void um_ficheiro_estragado_guarda_o_que_vem_antes_e_so_entao_termina_data()
    {
        Colunas();
        for (const auto *nome : {"normal.dat", "duplicados.dat", "so_cr.dat", "linhas_vazias.dat"})
            Acrescentar(QLatin1String(nome), 10);
    }
    void um_ficheiro_estragado_guarda_o_que_vem_antes_e_so_entao_termina()
    {
        QFETCH(QString, nome);
        QFETCH(Estrago, estrago);
        QFETCH(int, copias);
        const QByteArray sao = Ler_Ficheiro(nome);
        std::mt19937 acaso(1252);
        CopiaEstragada copia(u"copia.dat"_s);
        Sistema s;
        Main main(s.geral, s.plataforma);
        main.Carregar();
        auto &intercambio = *main.findChild<Intercambio *>();
        int fins = 0;
        for (int i = 0; i < copias; ++i) {
            const QByteArray bytes = estrago(sao, acaso);
            const Esperado esperado(bytes);
            s.Escrever(u"DELETE FROM TblLista"_s);
            if (esperado.termina) s.caixas.Espera_Erro(5);
            fins += esperado.termina ? 1 : 0;

            frmImportar2 form(s.geral, s.plataforma, intercambio, main);
            for (const QString &registo :
                 registo_morvex::Registos(registo_morvex::Ler_Linhas(copia.Guardar(bytes))))
                form.ListaMorvex43->AddItem(registo);
            form.cmdSeguinte->click();

            QCOMPARE(s.processo.fins, fins);
            QVERIFY(s.caixas.Todas_Vistas());
            Recordset rs = s.Ler(u"SELECT Nome, Obs, Fotografia FROM TblLista ORDER BY ID"_s);
            QCOMPARE(rs.RecordCount(), esperado.registos.size());
            for (const QList<QByteArray> &registo : esperado.registos) {
                QCOMPARE(rs.Fields("Nome").text(), Guardado(registo[0]));
                QCOMPARE(rs.Fields("Obs").text(), Guardado(registo[10]));
                QCOMPARE(rs.Fields("Fotografia").text(), Guardado(registo[15]));
                rs.MoveNext();
            }
        }
    }
};

MORVEX_TESTE(TestRegistosEstragados)
#include "test_RegistosEstragados.moc"
