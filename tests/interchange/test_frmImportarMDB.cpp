// The merge of an older database, of either kind.
#include "interchange/frmImportarMDB.h"

#include "controls/IconLabel.h"
#include "data/CartoesGuardados.h"
#include "data/Codificar_Pass.h"
#include "interchange/DE2.h"
#include "interchange/frmImportar.h"
#include "interchange/Intercambio.h"
#include "jet/JetFile.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/BaseAntiga.h"
#include "testlib/CopiaEstragada.h"
#include "testlib/Desempacotado.h"
#include "testlib/DiscoCheio.h"
#include "testlib/FalhaDita.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/MemoriaPedida.h"
#include "testlib/OutrosNomes.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

using namespace Qt::StringLiterals;
using accoes::Quando_Abrir;

namespace
{
QString Dado(const QString &nome) { return QFINDTESTDATA(u"fixtures/jet/"_s + nome); }

QJsonObject Manifesto(const QString &nome)
{
    QFile ficheiro(Dado(nome));
    return ficheiro.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(ficheiro.readAll()).object()
                                              : QJsonObject();
}

struct Programa {
    explicit Programa(const QString &idioma = u"PortuguesPT"_s)
        : s(Sistema::Estado::Semeado, idioma), main(s.geral, s.plataforma)
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Escrever(u"DELETE FROM TblMemos"_s);
        main.Carregar();
    }

    void Escolher(const QString &caminho, const std::function<void(frmImportarMDB &)> &accao)
    {
        s.dialogos.textos << caminho;
        Quando_Abrir<frmImportar>([accao](frmImportar &form) {
            form.cmdProcurar->click();
            if (accao) Quando_Abrir<frmImportarMDB>(accao);
            form.cmdSeguinte->click();
        });
        main.Importar->trigger();
    }

    // Chooses the file, which the first form refuses itself. Returns whether it stayed for another choice.
    bool Recusada(const QString &caminho)
    {
        s.dialogos.textos << caminho;
        bool ficou = false;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            form.cmdProcurar->click();
            form.cmdSeguinte->click();
            ficou = form.isVisible();
            form.reject();
        });
        main.Importar->trigger();
        return ficou;
    }

    void Fundir(const QString &caminho, const QString &relatorio)
    {
        s.caixas.Espera(relatorio + s.Texto(231) + u"\r\n"_s + s.Texto(235), 48, s.Texto(82));
        Escolher(caminho, [](frmImportarMDB &form) {
            form.cmdSeguinte->click();
            form.reject(); // the process would have ended
        });
    }

    QString Relatorio(const QJsonArray &linhas)
    {
        QString relatorio;
        for (const auto &linha : linhas)
            relatorio += s.Texto(linha[0].toString().toInt()) + u": "_s + linha[1].toString() + u"\r\n"_s;
        return relatorio;
    }

    Sistema s;
    Main main;
};

// Whether a cell of the database holds what the manifest says: long texts by length, beginning and end;
// numbers as 32-bit floats.
bool Igual(const QString &celula, const QJsonValue &esperado)
{
    if (esperado.isBool()) return celula == (esperado.toBool() ? u"1"_s : u"0"_s);
    if (esperado.isDouble())
        return static_cast<float>(celula.toDouble()) == static_cast<float>(esperado.toDouble());
    if (esperado.isObject())
        return celula.size() == esperado[u"len"_s].toInt() &&
               celula.startsWith(esperado[u"start"_s].toString()) &&
               celula.endsWith(esperado[u"end"_s].toString());
    return celula == esperado.toString();
}

void Comparar(Recordset rs, const QJsonArray &esperadas, const QString &tabela)
{
    QCOMPARE(rs.RecordCount(), esperadas.size());
    for (qsizetype i = 0; i < esperadas.size(); ++i, rs.MoveNext()) {
        const QStringList linha = rs.Row();
        const QJsonArray esperada = esperadas[i].toArray();
        for (qsizetype j = 0; j < linha.size(); ++j)
            QVERIFY2(Igual(linha[j], esperada[j]),
                     qPrintable(u"%1 row %2 cell %3: %4"_s.arg(tabela).arg(i).arg(j).arg(linha[j])));
    }
}

void Comparar_Tudo(Sistema &s, const QJsonObject &m)
{
    Comparar(s.Ler(u"SELECT ID, NomeGrupo, IdUtilizador FROM TblGrupos WHERE ID > 6 ORDER BY ID"_s),
             m[u"TblGrupos"_s].toArray(), u"TblGrupos"_s);
    Comparar(s.Ler(u"SELECT ID, Utilizador, Pass, SystemTray, Adicionar, Editar, Eliminar, Grupos, "
                   u"Utilizadores FROM "
                   "TblUsers ORDER BY ID"_s),
             m[u"TblUsers"_s].toArray(), u"TblUsers"_s);
    Comparar(s.Ler(u"SELECT Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, Dia, Mes, "
                   u"Ano, Email1, "
                   "Email2, Website, Morada, Obs, Fotografia, Grupo FROM TblLista ORDER BY ID"_s),
             m[u"TblLista"_s].toArray(), u"TblLista"_s);
    Comparar(s.Ler(u"SELECT Tarefa, Data, Hora, Utilizador, IDRepeticao FROM TblTarefas ORDER BY ID"_s),
             m[u"TblTarefas"_s].toArray(), u"TblTarefas"_s);
    Comparar(
        s.Ler(u"SELECT Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, FontSize, FontBold, "
              "FontItalic, CorFundo, Utilizador FROM TblMemos ORDER BY ID"_s),
        m[u"TblMemos"_s].toArray(), u"TblMemos"_s);
    for (const auto &definicao : m[u"ini"_s].toArray())
        QCOMPARE(s.geral.ini.Ler_Ini(definicao[0].toString(), definicao[1].toString()),
                 definicao[2].toString());
}

// A column of a table in the order of its IDs, Null as the empty text.
QStringList Textos(JetFile::Table tabela, const QString &coluna)
{
    const auto qual = static_cast<std::size_t>(tabela.columns.indexOf(coluna));
    std::sort(tabela.rows.begin(), tabela.rows.end(),
              [](const auto &a, const auto &b) { return std::get<qint64>(a[0]) < std::get<qint64>(b[0]); });
    QStringList textos;
    for (const auto &linha : tabela.rows) {
        const auto *texto = std::get_if<QString>(&linha[qual]);
        textos << (texto ? *texto : QString());
    }
    return textos;
}

// A database of this program's own kind, filled by the test.
struct BasePropria {
    BasePropria() { base.Escrever(u"DELETE FROM TblLista"_s), base.Escrever(u"DELETE FROM TblMemos"_s); }
    QString Caminho() const { return base.Base(); }

    // So many contacts with notes of so many letters, and as many tasks and memos of Rui's.
    void Encher(int linhas, int letras)
    {
        const int rui = base.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const QString fonte =
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "_s.arg(linhas);
        base.Escrever(fonte + u"INSERT INTO TblLista (Nome, Obs, Grupo) SELECT 'Contacto ' || i, "
                              "printf('%.*c', %1, 'o'), 1 FROM n"_s.arg(letras));
        base.Escrever(fonte + u"INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) SELECT "
                              "'Tarefa ' || i, '2027-02-01', '10:00:00', %1, 1 FROM n"_s.arg(rui));
        base.Escrever(
            fonte +
            u"INSERT INTO TblMemos (Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, "
            "FontSize, FontBold, FontItalic, CorFundo, Utilizador) SELECT 'Memo ' || i, 'd', 1, 2, 3, "
            "4, 'Tahoma', 8, 0, 0, 65535, %1 FROM n"_s.arg(rui));
    }
    Sistema base{Sistema::Estado::Semeado, u"PortuguesPT"_s, Sistema::Onde::Num_Ficheiro};
};

// What stands in the way of a merge while one lives.
using Obstaculo = std::shared_ptr<void>;
struct Trancada {
    explicit Trancada(Sistema &s) : s_(s) { s_.Trancar(); }
    ~Trancada() { s_.Destrancar(); }
    Trancada(const Trancada &) = delete;
    Trancada &operator=(const Trancada &) = delete;
    Sistema &s_;
};
QStringList Tudo(Sistema &s)
{
    return s.Linhas(u"SELECT (SELECT count(*) FROM TblLista), (SELECT count(*) FROM TblTarefas), "
                    "(SELECT count(*) FROM TblMemos), (SELECT count(*) FROM TblUsers)"_s);
}

QByteArray Conteudo(const QString &caminho)
{
    QFile ficheiro(caminho);
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
}

rlim_t Tamanho(Sistema &s) { return static_cast<rlim_t>(QFileInfo(s.Base()).size()); }

// Why a file is refused at once, in the language of the tests.
const auto base_em_uso =
    u"Este ficheiro é a base de dados em uso e não pode ser importado para si próprio:\r\n"_s;
const auto ficheiro_grande = u"O ficheiro é demasiado grande para ser importado (no máximo 256 MB):\r\n"_s;

constexpr qsizetype pagina = 4096;

// Where the pages of the table with the most rows begin in a file of the older kind.
std::vector<qsizetype> Paginas_De_Linhas(const QByteArray &bytes)
{
    constexpr int dona = 4;
    std::map<QByteArray, std::vector<qsizetype>> paginas;
    for (qsizetype i = pagina; i < bytes.size(); i += pagina)
        if (const QByteArray de = bytes.mid(i + dona, 4); bytes[i] == 1 && de != "LVAL")
            paginas[de].push_back(i);
    return std::max_element(paginas.begin(), paginas.end(),
                            [](const auto &a, const auto &b) { return a.second.size() < b.second.size(); })
        ->second;
}

// Fills the one page with rows that have all moved to the first row of the other.
void Apontar_Tudo_Para(QByteArray &bytes, qsizetype qual, qsizetype outra)
{
    constexpr int contagem = 12;
    constexpr int lugares = 14;
    constexpr int tamanho = 4;
    constexpr quint16 mudada = 0x4000;
    constexpr int quantas = (pagina - lugares) / (tamanho + 2);
    char *inicio = bytes.data() + qual;
    qToLittleEndian<quint16>(quantas, inicio + contagem);
    for (int i = 0; i < quantas; ++i) {
        const int onde = pagina - tamanho * (i + 1);
        qToLittleEndian<quint16>(static_cast<quint16>(onde | mudada), inicio + lugares + 2 * i);
        qToLittleEndian<quint32>(static_cast<quint32>(outra / pagina) << 8, inicio + onde);
    }
}

// The names of the files in the folder of that one.
QStringList Vizinhos(const QString &ficheiro)
{
    return QFileInfo(ficheiro).dir().entryList(QDir::Files | QDir::Hidden);
}
} // namespace

Q_DECLARE_METATYPE(std::function<void(QByteArray &)>)
Q_DECLARE_METATYPE(std::function<Obstaculo(Sistema &)>)
Q_DECLARE_METATYPE(std::function<QString(Sistema &)>)

class TestFrmImportarMDB : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_base_antiga_funde_se_como_o_seu_manifesto_diz_data()
    {
        QTest::addColumn<QString>("base");
        QTest::addColumn<QString>("manifesto");
        QTest::newRow("pequena") << u"pequena.mdb"_s << u"pequena.merge.t1.json"_s;
        QTest::newRow("com páginas cifradas") << u"cifrada.mdb"_s << u"pequena.merge.t1.json"_s;
        QTest::newRow("vazia") << u"vazia.mdb"_s << u"vazia.merge.t1.json"_s;
        QTest::newRow("sem utilizadores") << u"sem_utilizadores.mdb"_s << u"sem_utilizadores.merge.t1.json"_s;
        QTest::newRow("sem a coluna IDRepeticao")
            << u"sem_idrepeticao.mdb"_s << u"sem_idrepeticao.merge.t1.json"_s;
    }
    void cada_base_antiga_funde_se_como_o_seu_manifesto_diz()
    {
        QFETCH(QString, base);
        QFETCH(QString, manifesto);
        const QJsonObject m = Manifesto(manifesto);
        QVERIFY(!m.isEmpty());
        Programa p;
        p.Fundir(Dado(base), p.Relatorio(m[u"report"_s].toArray()));
        QVERIFY(p.s.processo.Terminou());
        Comparar_Tudo(p.s, m);
    }

    void as_etiquetas_contam_o_que_a_base_tem()
    {
        Programa p(u"FrancesFR"_s); // the design has them in Portuguese
        p.Escolher(Dado(u"pequena.mdb"_s), [&](frmImportarMDB &form) {
            QCOMPARE(form.windowTitle(), p.s.Texto(82));
            QCOMPARE(form.Label1->text(), p.s.Texto(83));
            QCOMPARE(form.cmdSeguinte->text(), p.s.Texto(229));
            QCOMPARE(form.cmdCancelar->text(), p.s.Texto(43));
            QCOMPARE(form.ProgressBar1->accessibleName(), p.s.Texto(82));
            QCOMPARE(form.Label2->text(), p.s.Texto(230) + u' ' + Dado(u"pequena.mdb"_s));
            QCOMPARE(form.Label3->text(), p.s.Texto(86) + u" 45"_s);
            QCOMPARE(form.Label4->text(), p.s.Texto(233) + u": 9"_s);
            QCOMPARE(form.Label5->text(), p.s.Texto(234) + u": 24"_s);
            QVERIFY(!form.ProgressBar1->isVisible());
            QVERIFY(!p.s.geral.temporizadores.timerTarefas.Enabled());
            QVERIFY(p.main.isEnabled()); // the first form has closed
            p.main.setEnabled(false);
            const QSize antes = form.sizeHint();
            form.ProgressBar1->show(); // its place was kept
            QCOMPARE(form.sizeHint(), antes);
            form.cmdCancelar->click();
            QVERIFY(p.main.isEnabled());
            QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled()); // from the moment it closes
        });
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.main.isEnabled());
    }

    void uma_base_que_nao_se_deixa_contar_diz_o_texto_87_data()
    {
        QTest::addColumn<QString>("base");
        QTest::newRow("sem TblMemos") << u"sem_tblmemos.mdb"_s;
        QTest::newRow("cortada a meio") << u"truncada_meio.mdb"_s;
    }
    void uma_base_que_nao_se_deixa_contar_diz_o_texto_87()
    {
        QFETCH(QString, base);
        Programa p;
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + Dado(base), 16, p.s.Texto(82));
        p.Escolher(Dado(base), nullptr);
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled()); // the alarm goes on
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"0"_s});
    }

    void o_comeco_de_uma_base_nao_e_uma_base_data()
    {
        QTest::addColumn<bool>("antiga");
        QTest::addColumn<qint64>("bytes");
        for (const bool antiga : {false, true})
            for (const qint64 bytes : {40, 100, 600, 4095})
                QTest::addRow("%s, %lld bytes", antiga ? "antiga" : "nossa", static_cast<long long>(bytes))
                    << antiga << bytes;
    }
    void o_comeco_de_uma_base_nao_e_uma_base()
    {
        QFETCH(bool, antiga);
        QFETCH(qint64, bytes);
        Programa p;
        const QString curta = p.s.Ficheiro(u"curta.mdb"_s);
        QFile inteira(antiga ? Dado(u"vazia.mdb"_s) : qEnvironmentVariable("MORVEX_ENVIADOS") + u"/morvex.mdb"_s);
        QFile inicio(curta);
        QVERIFY(inteira.open(QIODevice::ReadOnly) && inicio.open(QIODevice::WriteOnly));
        QCOMPARE(inicio.write(inteira.read(bytes)), bytes);
        inicio.close();
        p.s.caixas.Espera_Erro(Failure::StoreError);
        p.Escolher(curta, nullptr);
        QVERIFY(p.s.processo.Terminou());
    }

    // The shortest file that can be one opens, and then has no table.
    void uma_base_de_uma_so_pagina_abre_se_e_diz_o_texto_87()
    {
        Programa p;
        const QString curta = p.s.Ficheiro(u"uma_pagina.mdb"_s);
        QByteArray bytes("SQLite format 3\0\x10\0\1\1\0\x40\x20\x20\0\0\0\1\0\0\0\1", 32);
        bytes += QByteArray(pagina - bytes.size(), '\0');
        bytes[100] = 13;   // the page is a leaf
        bytes[105] = 0x10; // of no cells: they would begin behind its last byte
        QFile ficheiro(curta);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && ficheiro.write(bytes) == pagina);
        ficheiro.close();
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + curta, 16, p.s.Texto(82));
        p.Escolher(curta, nullptr);
        QVERIFY(!p.s.processo.Terminou());
    }

    void uma_base_antiga_de_32768_contactos_diz_o_texto_87()
    {
        const Desempacotado antiga(Dado(u"limite_32768.mdb.xz"_s));
        Programa p;
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + antiga.Caminho(), 16, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), nullptr);
        QVERIFY(!p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"0"_s});
    }

    void uma_base_antiga_de_vinte_mil_contactos_vem_inteira()
    {
        const Desempacotado antiga(Dado(u"grande.mdb.xz"_s));
        const JetFile ficheiro(antiga.Caminho());
        Programa p;
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            QCOMPARE(form.Label3->text(), p.s.Texto(86) + u" 19950"_s);
            QCOMPARE(form.Label4->text(), p.s.Texto(233) + u": 300"_s);
            QCOMPARE(form.Label5->text(), p.s.Texto(234) + u": 500"_s);
            form.cmdSeguinte->click();
            form.reject();
        });
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista ORDER BY ID"_s),
                 Textos(ficheiro.read(u"TblLista"_s), u"Nome"_s));
        QCOMPARE(p.s.Linhas(u"SELECT Obs FROM TblLista ORDER BY ID"_s),
                 Textos(ficheiro.read(u"TblLista"_s), u"Obs"_s));
        QCOMPARE(p.s.Linhas(u"SELECT Tarefa FROM TblTarefas ORDER BY ID"_s),
                 Textos(ficheiro.read(u"TblTarefas"_s), u"Tarefa"_s));
        QCOMPARE(p.s.Linhas(u"SELECT Descricao FROM TblMemos ORDER BY ID"_s),
                 Textos(ficheiro.read(u"TblMemos"_s), u"Descricao"_s));
    }

    void mais_de_32767_linhas_nao_se_contam()
    {
        BasePropria antiga;
        antiga.base.Escrever(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<32768) "
                             "INSERT INTO TblLista (Nome, Grupo) SELECT 'n', 1 FROM n"_s);
        Programa p;
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + antiga.Caminho(), 16, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), nullptr);
        QVERIFY(!p.s.processo.Terminou());
    }

    void um_ficheiro_que_nao_abre_termina_o_processo_data()
    {
        QTest::addColumn<QString>("base");
        for (const char *base : {"com_palavra_passe.mdb", "corrompida.mdb", "zero_bytes.mdb", "texto.mdb"})
            QTest::newRow(base) << QString::fromLatin1(base);
    }
    void um_ficheiro_que_nao_abre_termina_o_processo()
    {
        QFETCH(QString, base);
        Programa p;
        p.s.caixas.Espera_Erro(Failure::StoreError);
        p.Escolher(Dado(base), nullptr);
        QVERIFY(p.s.processo.Terminou());
    }

    void uma_base_propria_estragada_nunca_se_funde_em_parte_data()
    {
        QTest::addColumn<std::function<void(QByteArray &)>>("estrago");
        QTest::newRow("cortada a meio")
            << std::function([](QByteArray &bytes) { bytes.truncate(bytes.size() / 2); });
        QTest::newRow("página apagada") << std::function([](QByteArray &bytes) {
            const qsizetype pagina = bytes.indexOf("Contacto 250") / 4096 * 4096;
            bytes.replace(pagina, 4096, QByteArray(4096, 0));
        });
    }
    void uma_base_propria_estragada_nunca_se_funde_em_parte()
    {
        QFETCH(std::function<void(QByteArray &)>, estrago);
        BasePropria antiga;
        antiga.base.Escrever(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<500) "
                             "INSERT INTO TblLista (Nome, Grupo) SELECT 'Contacto ' || i, 1 FROM n"_s);
        QFile ficheiro(antiga.Caminho());
        QVERIFY(ficheiro.open(QIODevice::ReadOnly));
        QByteArray bytes = ficheiro.readAll();
        estrago(bytes);
        Programa p;
        const QString estragada = p.s.Ficheiro(u"estragada.mdb"_s);
        QFile copia(estragada);
        QVERIFY(copia.open(QIODevice::WriteOnly) && copia.write(bytes) == bytes.size());
        copia.close();
        p.s.caixas.Espera_Erro(Failure::StoreError);
        p.Escolher(estragada, nullptr);
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"0"_s});
    }

    void sem_tarefas_nem_memos_as_marcas_vem_e_a_barra_acaba_em_cem()
    {
        BasePropria antiga;
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Grupo"_s, Value(1)}});
        Programa p;
        p.s.caixas.Espera(p.s.Texto(231) + u"\r\n"_s + p.s.Texto(235), 48,
                          p.s.Texto(82)); // nothing was created
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            form.cmdSeguinte->click();
            for (QWidget *marca : {form.imgRegistos, form.imgTarefas, form.imgMemos})
                QVERIFY(marca->isVisible());
            QCOMPARE(form.ProgressBar1->value(), 100);
            form.reject();
        });
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Grupo FROM TblLista"_s), QStringList{u"Ana|1"_s});
    }

    void um_contacto_sem_linha_de_grupo_junta_se_ao_grupo_do_anterior()
    {
        BasePropria antiga;
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Grupo"_s, Value(4)}});
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Rui"_s)}, {u"Grupo"_s, Value(99)}});
        Programa p;
        p.Fundir(antiga.Caminho(), {});
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Grupo FROM TblLista ORDER BY ID"_s),
                 (QStringList{u"Ana|4"_s, u"Rui|4"_s}));
    }

    void uma_tarefa_sem_dono_vai_para_o_da_linha_anterior()
    {
        BasePropria antiga;
        const int rui = antiga.base.Novo_Utilizador(u"Rui"_s, u"x"_s);
        antiga.base.geral.de.Executar("cmdAdicionarTarefa", {u"uma", u"01-02-2027", u"10:00", rui, u"1"});
        antiga.base.geral.de.Executar("cmdAdicionarTarefa", {u"duas", u"01-02-2027", u"10:00", u"0", u"1"});
        Programa p;
        p.Fundir(antiga.Caminho(), p.s.Texto(237) + u": Rui\r\n"_s);
        QCOMPARE(p.s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), QStringList{u"Rui"_s});
        QCOMPARE(p.s.Linhas(u"SELECT Tarefa, Utilizador FROM TblTarefas ORDER BY ID"_s),
                 (QStringList{u"uma|1"_s, u"duas|1"_s}));
        QCOMPARE(p.s.Linhas(u"SELECT Pass FROM TblUsers"_s), QStringList{Codificar_Pass(u"x"_s)});
    }

    void um_memo_sem_dono_vai_para_o_do_memo_anterior()
    {
        BasePropria antiga;
        const int rui = antiga.base.Novo_Utilizador(u"Rui"_s, u"x"_s);
        for (const int dono : {rui, 0, 99})
            antiga.base.geral.de.Executar("cmdAdicionarMemo",
                                          {u"dono %1"_s.arg(dono), u"d", u"1", u"2", u"3", u"4", u"Tahoma",
                                           u"8,25", u"False", u"False", u"65535", dono});
        Programa p;
        p.Fundir(antiga.Caminho(), p.s.Texto(237) + u": Rui\r\n"_s);
        QCOMPARE(p.s.Linhas(u"SELECT Titulo, Utilizador FROM TblMemos ORDER BY ID"_s),
                 (QStringList{u"dono 1|1"_s, u"dono 0|1"_s, u"dono 99|1"_s}));
    }

    // Nobody has an empty name: the user can't be made, the report names him all the same, and the task keeps
    // the owner that it had.
    void uma_primeira_tarefa_sem_dono_passa_com_o_nome_vazio()
    {
        BasePropria antiga;
        antiga.base.geral.de.Executar("cmdAdicionarTarefa", {u"uma", u"01-02-2027", u"10:00", u"0", u"1"});
        Programa p;
        p.Fundir(antiga.Caminho(), p.s.Texto(237) + u": \r\n"_s);
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblUsers"_s), QStringList{u"0"_s});
        QCOMPARE(p.s.Linhas(u"SELECT Tarefa, Utilizador FROM TblTarefas"_s), QStringList{u"uma|0"_s});
        QCOMPARE(p.s.geral.ini.Ler_Ini(u"emailnotify"_s, u"minutos"_s), u"60"_s);
    }

    void sem_tarefas_um_utilizador_criado_pelos_memos_nao_recebe_definicoes()
    {
        BasePropria antiga;
        const int rui = antiga.base.Novo_Utilizador(u"Rui"_s, u"x"_s);
        antiga.base.geral.de.Executar("cmdAdicionarMemo", {u"t", u"d", u"1", u"2", u"3", u"4", u"Tahoma",
                                                           u"8,25", u"False", u"False", u"65535", rui});
        Programa p;
        p.s.geral.ini.Escrever_Ini(u"emailnotify"_s, u"minutos"_s, u"5"_s);
        p.Fundir(antiga.Caminho(), p.s.Texto(237) + u": Rui\r\n"_s);
        QCOMPARE(p.s.geral.ini.Ler_Ini(u"emailnotify1"_s, u"minutos"_s), QString());
        QCOMPARE(p.s.geral.ini.Ler_Ini(u"emailnotify"_s, u"minutos"_s), u"60"_s);
        QCOMPARE(p.s.Linhas(u"SELECT Utilizador FROM TblMemos"_s), QStringList{u"1"_s});
    }

    void um_grupo_do_mesmo_nome_e_usado_e_o_relatorio_cala_se()
    {
        BasePropria antiga;
        antiga.base.Escrever(u"UPDATE TblGrupos SET NomeGrupo='AMIGOS' WHERE ID=1"_s);
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Grupo"_s, Value(1)}});
        Programa p;
        p.Fundir(antiga.Caminho(), {});
        QCOMPARE(p.s.Linhas(u"SELECT Grupo FROM TblLista"_s), QStringList{u"1"_s});
        QCOMPARE(p.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID=1"_s), QStringList{u"Amigos"_s});
    }

    void fotografias_e_cartoes_vem_com_os_seus_contactos()
    {
        BasePropria antiga;
        const QString nome = Por_Na_Base(antiga.base, {20, 20});
        const QString outra = Por_Na_Base(antiga.base, {30, 30});
        CartoesGuardados cartoes(antiga.base.geral.de);
        for (const auto &[pessoa, Fotografia] :
             {std::pair(u"Ana"_s, nome), {u"Rui"_s, QString()}, {u"Eva"_s, nome}}) {
            const int id = antiga.base.Novo_Contacto(
                {{u"Nome"_s, pessoa}, {u"Fotografia"_s, Fotografia}, {u"Grupo"_s, 1}});
            if (pessoa != "Rui"_L1)
                cartoes.Guardar({QString::number(id), pessoa, QByteArray("BEGIN\0", 6) + pessoa.toUtf8()});
        }
        Programa p;
        p.s.Novo_Contacto({{u"Nome"_s, u"cá"_s}}); // so that no number is the old one
        p.Fundir(antiga.Caminho(), {});
        QCOMPARE(p.s.Linhas(u"SELECT Nome, UID, %1 FROM TblLista LEFT JOIN TblCartoes ON "
                            "IDContacto=ID WHERE Nome<>'cá' ORDER BY Nome"_s.arg(p.s.Hex(u"cartao"_s))),
                 (QStringList{u"Ana|Ana|424547494E00416E61"_s, u"Eva|Eva|424547494E00457661"_s,
                              u"Rui|<Null>|"_s}));
        QCOMPARE(FotografiasDaBase(p.s.geral.de).Ler(nome), Bytes_De_Imagem({20, 20}));
        QCOMPARE(FotografiasDaBase(p.s.geral.de).Ler(outra), QByteArray()); // nobody's
    }

    void uma_base_de_antes_das_fotografias_e_dos_cartoes_funde_se()
    {
        BasePropria antiga;
        antiga.base.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, u"bd:a.png"_s}, {u"Grupo"_s, 1}});
        antiga.base.geral.de.Fechar_Ligacao();
        Envelhecer(antiga.base);
        Programa p;
        p.Fundir(antiga.Caminho(), {});
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Fotografia FROM TblLista"_s), QStringList{u"Ana|bd:a.png"_s});
        QCOMPARE(antiga.base.Linhas(u"PRAGMA user_version"_s), QStringList{u"0"_s}); // it is only read
    }

    void a_barra_recua_no_comeco_de_cada_passagem()
    {
        BasePropria antiga;
        for (int i = 0; i < 4; ++i) {
            antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}});
            antiga.base.geral.de.Executar("cmdAdicionarTarefa", {u"t", u"01-02-2027", u"10:00", u"0", u"1"});
        }
        Programa p;
        DE2 de2(antiga.Caminho());
        Fusao fusao(p.s.geral, de2, {4, 4, 0});
        QList<int> valores;
        connect(&fusao, &Fusao::Progresso, this, [&](int valor) { valores << valor; });
        fusao.Correr();
        QCOMPARE(valores, (QList<int>{0, 25, 50, 75, 100, 25, 50, 75, 100, 100}));
    }

    void uma_unica_linha_enche_a_barra()
    {
        BasePropria antiga;
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}});
        Programa p;
        DE2 de2(antiga.Caminho());
        Fusao fusao(p.s.geral, de2, {1, 0, 0});
        QList<int> valores;
        connect(&fusao, &Fusao::Progresso, this, [&](int valor) { valores << valor; });
        fusao.Correr();
        QCOMPARE(valores, (QList<int>{0, 100, 100}));
    }

    void a_barra_anda_no_ecra_enquanto_a_fusao_corre()
    {
        struct Pintura : QObject {
            explicit Pintura(QProgressBar &qual) : barra(qual) { barra.installEventFilter(this); }
            bool eventFilter(QObject *, QEvent *evento) override
            {
                if (evento->type() == QEvent::Paint) valores << barra.value();
                return false;
            }
            QProgressBar &barra;
            QList<int> valores;
        };
        BasePropria antiga;
        for (int i = 0; i < 50; ++i) {
            antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}});
            antiga.base.geral.de.Executar("cmdAdicionarTarefa", {u"t", u"01-02-2027", u"10:00", u"0", u"1"});
        }
        Programa p;
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            QVERIFY(QTest::qWaitForWindowExposed(&form));
            const QSize antes = form.size();
            const Pintura pintura(*form.ProgressBar1);
            form.cmdSeguinte->click();
            const QList<int> valores = pintura.valores;
            QCOMPARE(form.size(), antes); // its place was kept for it
            QVERIFY(form.rect().contains(form.ProgressBar1->geometry()));
            QVERIFY2(QSet<int>(valores.begin(), valores.end()).size() > 10, "it stood still");
            QCOMPARE(std::is_sorted(valores.begin(), valores.end()), false); // it falls back in between
            QCOMPARE(valores.constLast(), 100);
            form.reject();
        });
    }

    // No event is taken while the merge runs: a mark that waited for one would come with the end.
    void cada_marca_pinta_se_logo_que_aparece()
    {
        struct Contagem : QObject {
            int pinturas = 0;
            bool eventFilter(QObject *, QEvent *evento) override
            {
                if (evento->type() == QEvent::Paint) ++pinturas;
                return false;
            }
        };
        Programa p;
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        p.Escolher(Dado(u"pequena.mdb"_s), [](frmImportarMDB &form) {
            QVERIFY(QTest::qWaitForWindowExposed(&form));
            std::array<Contagem, 3> contagens;
            form.imgRegistos->installEventFilter(&contagens[0]);
            form.imgTarefas->installEventFilter(&contagens[1]);
            form.imgMemos->installEventFilter(&contagens[2]);
            form.cmdSeguinte->click();
            for (const Contagem &contagem : contagens)
                QVERIFY(contagem.pinturas > 0);
            form.reject();
        });
    }

    void uma_segunda_base_depois_de_um_cancelar_le_ainda_a_primeira()
    {
        Programa p;
        p.Escolher(Dado(u"pequena.mdb"_s), [](frmImportarMDB &form) { form.cmdCancelar->click(); });
        p.Escolher(Dado(u"vazia.mdb"_s), [&](frmImportarMDB &form) {
            QCOMPARE(form.Label2->text(), p.s.Texto(230) + u' ' + Dado(u"vazia.mdb"_s));
            QCOMPARE(form.Label3->text(), p.s.Texto(86) + u" 45"_s);
            form.cmdCancelar->click();
        });
    }

    void duas_fusoes_dobram_os_contactos_e_a_base_lida_fica_como_estava()
    {
        BasePropria antiga;
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}});
        Programa p;
        for (int vez = 0; vez < 2; ++vez) {
            DE2 de2(antiga.Caminho());
            Fusao(p.s.geral, de2, {1, 0, 0}).Correr();
        }
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista"_s), (QStringList{u"Ana"_s, u"Ana"_s}));
        QCOMPARE(antiga.base.Linhas(u"SELECT Nome FROM TblLista"_s), QStringList{u"Ana"_s});
    }

    void uma_base_que_nao_se_deixa_escrever_di_lo_antes_da_primeira_linha_data()
    {
        QTest::addColumn<std::function<Obstaculo(Sistema &)>>("impedir");
        QTest::newRow("trancada") << std::function(
            [](Sistema &s) -> Obstaculo { return std::make_shared<Trancada>(s); });
        if (SemPrivilegios().Possivel())
            QTest::newRow("só de leitura")
                << std::function([](Sistema &) -> Obstaculo { return std::make_shared<SemPrivilegios>(); });
        if (DiscoCheio::Possivel())
            QTest::newRow("disco cheio") << std::function(
                [](Sistema &s) -> Obstaculo { return std::make_shared<DiscoCheio>(Tamanho(s)); });
    }
    void uma_base_que_nao_se_deixa_escrever_di_lo_antes_da_primeira_linha()
    {
        SO_NUM_FICHEIRO("what keeps it from being written");
        constexpr qint64 paciencia =
            12000; // ms: one wait for the lock takes 5,000, and one a row takes minutes
        QFETCH(std::function<Obstaculo(Sistema &)>, impedir);
        BasePropria antiga;
        antiga.Encher(20, 10);
        Programa p;
        p.s.caixas.Espera_Qualquer(16, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            Obstaculo obstaculo = impedir(p.s);
            QElapsedTimer relogio;
            relogio.start();
            form.cmdSeguinte->click();
            obstaculo.reset();
            QVERIFY2(relogio.elapsed() < paciencia, qPrintable(QString::number(relogio.elapsed())));
            QVERIFY(form.isVisible());
            QVERIFY(!form.ProgressBar1->isVisible());
            QVERIFY(!form.imgRegistos->isVisible());
            form.reject();
        });
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(!p.s.processo.Terminou());
        QCOMPARE(Tudo(p.s), QStringList{u"0|0|0|0"_s});
    }

    void o_impedimento_acabado_a_fusao_faz_se()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        SO_NUM_FICHEIRO("what keeps it from being written");
        BasePropria antiga;
        antiga.Encher(20, 10);
        Programa p;
        p.s.caixas.Espera_Qualquer(16, p.s.Texto(82));
        p.s.caixas.Espera(p.s.Texto(237) + u": Rui\r\n"_s + p.s.Texto(231) + u"\r\n"_s + p.s.Texto(235), 48,
                          p.s.Texto(82));
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            {
                const DiscoCheio cheio(Tamanho(p.s));
                form.cmdSeguinte->click();
            }
            form.cmdSeguinte->click();
            form.reject();
        });
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(Tudo(p.s), QStringList{u"20|20|20|1"_s});
    }

    // The disk takes the beginning: the box says of each table how much of it is there.
    void o_que_a_base_ja_nao_tomou_diz_se_no_fim()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        SO_NUM_FICHEIRO("its disk");
        BasePropria antiga;
        antiga.Encher(400, 2000);
        Programa p;
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            const DiscoCheio cheio(Tamanho(p.s) + 200000);
            form.cmdSeguinte->click();
            form.reject();
        });
        QVERIFY(p.s.processo.Terminou());
        const QStringList guardados = Tudo(p.s)[0].split(u'|');
        QVERIFY2(guardados[0].toInt() > 0 && guardados[0].toInt() < 400, qPrintable(guardados[0]));
        const QString dito = p.s.caixas.vistas.constLast();
        QVERIFY(!dito.contains(p.s.Texto(231)));
        for (int i = 0; i < 3; ++i)
            QVERIFY2(dito.contains(u": "_s + guardados[i] + u" / 400"_s), qPrintable(dito));
        QVERIFY2(dito.endsWith(p.s.Texto(235)), qPrintable(dito));
    }

    // What a portion brought goes with it: a group that it made is made again for the contacts that follow.
    void de_uma_porcao_desfeita_nenhum_grupo_se_lembra()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        SO_NUM_FICHEIRO("its disk");
        constexpr int linhas = 900;
        BasePropria antiga;
        antiga.Encher(linhas, 8000);
        for (const QString &nome : {u"Novo"_s, u"Outro"_s})
            antiga.base.Novo_Grupo(nome, 0);
        antiga.base.Escrever(u"UPDATE TblLista SET Nome=CASE WHEN ID%1<100 THEN 'Amigos' WHEN ID%1<500 THEN "
                             "'Novo' ELSE 'Outro' END"_s.arg(u"-(SELECT min(ID) FROM TblLista)"_s));
        antiga.base.Escrever(
            u"UPDATE TblLista SET Telefone1=ID, Grupo=(SELECT ID FROM TblGrupos WHERE NomeGrupo=Nome)"_s);
        antiga.base.Escrever(
            u"INSERT INTO TblCartoes (IDContacto, UID, cartao) SELECT ID, ID, x'00' FROM TblLista"_s);
        Programa p;
        auto cheio = std::make_unique<DiscoCheio>(Tamanho(p.s) + 200000);
        DE2 de2(antiga.Caminho());
        Fusao fusao(p.s.geral, de2, {linhas, 0, 0});
        connect(&fusao, &Fusao::Progresso, this, [&](int valor) {
            if (valor >= 40) cheio.reset();
        });
        fusao.Correr();
        const auto contar = [&](const QString &onde) {
            return p.s.Linhas(u"SELECT count(*) FROM TblLista WHERE "_s + onde)[0].toInt();
        };
        QVERIFY(!fusao.Completa()); // a portion was undone
        QVERIFY(contar(u"Nome='Novo'"_s) > 0);
        QCOMPARE(contar(u"Nome='Outro'"_s), 400);
        QCOMPARE(
            contar(u"NOT EXISTS (SELECT * FROM TblGrupos WHERE TblGrupos.ID=Grupo AND NomeGrupo=Nome)"_s), 0);
        // Each card is its contact's, and none has gone astray.
        const auto trocados = u"SELECT count(*) FROM TblCartoes LEFT JOIN TblLista ON ID=IDContacto WHERE "
                              "Telefone1 IS NOT UID"_s;
        QCOMPARE(p.s.Linhas(trocados), QStringList{u"0"_s});
        QVERIFY(contar(u"ID IN (SELECT IDContacto FROM TblCartoes)"_s) > 400);
    }

    // In whose place it comes the number of another group would stand.
    void sem_resposta_sobre_o_grupo_o_contacto_nao_entra_noutro_data()
    {
        QTest::addColumn<int>("qual");
        QTest::newRow("antes de o criar") << 1;
        QTest::newRow("depois de o criar") << 2;
    }
    void sem_resposta_sobre_o_grupo_o_contacto_nao_entra_noutro()
    {
        SO_NUM_FICHEIRO("its server is a file");
        QFETCH(int, qual);
        BasePropria antiga;
        antiga.base.Novo_Grupo(u"Novo"_s, 0);
        const QString numero = antiga.base.Linhas(u"SELECT ID FROM TblGrupos WHERE NomeGrupo='Novo'"_s)[0];
        for (const QString &nome : {u"Ana"_s, u"Rui"_s, u"Eva"_s})
            antiga.base.Novo_Contacto({{u"Nome"_s, Value(nome)}, {u"Grupo"_s, Value(numero)}});
        Sistema s;
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Novo_Grupo(u"Outro, com esse número"_s, 0);
        QCOMPARE(s.Linhas(u"SELECT max(ID) FROM TblGrupos"_s)[0], numero);
        ServidorFalso servidor(s.Base());
        servidor.Servir(s.geral);
        s.geral.de.Abrir("cmdVerConfig").Close();
        int perguntas = 0;
        servidor.falha_a_pergunta = [&](const QString &sql) {
            return sql.contains("FROM TblGrupos"_L1) && ++perguntas == qual;
        };
        DE2 de2(antiga.Caminho());
        Fusao fusao(s.geral, de2, {3, 0, 0});
        fusao.Correr();
        QVERIFY(!fusao.Completa());
        s.geral.de.Fechar_Ligacao();
        QCOMPARE(
            s.Linhas(u"SELECT TblLista.Nome, NomeGrupo FROM TblLista, TblGrupos WHERE TblGrupos.ID=Grupo "
                     "ORDER BY TblLista.ID"_s),
            (QStringList{u"Rui|Novo"_s, u"Eva|Novo"_s}));
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblGrupos WHERE NomeGrupo='Novo'"_s), QStringList{u"1"_s});
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"2"_s});
    }

    void uma_tranca_que_vem_a_meio_espera_se_uma_vez_e_diz_se_no_fim()
    {
        SO_NUM_FICHEIRO("its lock");
        constexpr qint64 paciencia = 12000; // ms
        BasePropria antiga;
        antiga.Encher(20, 10);
        Programa p;
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        std::unique_ptr<Trancada> tranca;
        struct AoMostrar : QObject {
            std::function<void()> accao;
            bool eventFilter(QObject *, QEvent *evento) override
            {
                if (evento->type() == QEvent::Show && accao) std::exchange(accao, nullptr)();
                return false;
            }
        } depois_dos_contactos;
        depois_dos_contactos.accao = [&] { tranca = std::make_unique<Trancada>(p.s); };
        p.Escolher(antiga.Caminho(), [&](frmImportarMDB &form) {
            form.imgRegistos->installEventFilter(&depois_dos_contactos);
            QElapsedTimer relogio;
            relogio.start();
            form.cmdSeguinte->click();
            QVERIFY2(relogio.elapsed() < paciencia, qPrintable(QString::number(relogio.elapsed())));
            tranca.reset();
            form.reject();
        });
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(Tudo(p.s), QStringList{u"20|0|0|0"_s});
        const QString dito = p.s.caixas.vistas.constLast();
        QVERIFY(!dito.contains(p.s.Texto(231)));
        QCOMPARE(dito.count(u": 20 / 20"_s), 1);
        QCOMPARE(dito.count(u": 0 / 20"_s), 2);
        QVERIFY2(!dito.contains(p.s.Texto(237)), qPrintable(dito)); // nobody was made
    }

    // They would stand in a section of nobody's, or in the one that is everybody's.
    void sem_resposta_sobre_um_utilizador_as_linhas_dele_nao_vem()
    {
        SO_NUM_FICHEIRO("a table of another name");
        BasePropria antiga;
        antiga.Encher(3, 10);
        Programa p;
        p.s.Escrever(u"ALTER TABLE TblUsers RENAME TO Fora"_s);
        DE2 de2(antiga.Caminho());
        Fusao fusao(p.s.geral, de2, {3, 3, 3});
        fusao.Correr();
        QVERIFY(!fusao.Completa());
        QCOMPARE(p.s.Linhas(u"SELECT (SELECT count(*) FROM TblLista), (SELECT count(*) FROM TblTarefas), "
                            "(SELECT count(*) FROM TblMemos)"_s),
                 QStringList{u"3|0|0"_s});
    }

    void um_utilizador_que_a_base_recusa_nao_deixa_definicoes()
    {
        BasePropria antiga;
        antiga.Encher(3, 10);
        Programa p;
        p.s.Recusar(u"INSERT"_s, u"TblUsers"_s);
        const auto definicoes = [&] {
            QFile ficheiro(p.s.Ficheiro(u"config.ini"_s));
            return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
        };
        const QByteArray antes = definicoes();
        DE2 de2(antiga.Caminho());
        Fusao fusao(p.s.geral, de2, {3, 3, 1});
        fusao.Correr();
        QVERIFY(!fusao.Completa());
        QVERIFY(p.s.Linhas(u"SELECT * FROM TblUsers"_s).isEmpty());
        QVERIFY(!antes.isEmpty());
        QCOMPARE(definicoes(), antes);
    }

    // Single rows that their columns refuse are skipped without a word, as ever.
    void linhas_que_as_suas_colunas_recusam_nao_mudam_o_fecho()
    {
        BasePropria antiga;
        antiga.Encher(3, 10);
        antiga.base.Escrever(u"UPDATE TblTarefas SET Data='' WHERE ID=2"_s);
        Programa p;
        p.Fundir(antiga.Caminho(), p.s.Texto(237) + u": Rui\r\n"_s);
        QCOMPARE(Tudo(p.s), QStringList{u"3|2|3|1"_s});
    }

    void a_base_em_uso_nao_se_importa_para_si_mesma_data()
    {
        QTest::addColumn<std::function<QString(Sistema &)>>("caminho");
        QTest::newRow("o seu caminho") << std::function([](Sistema &s) { return s.Base(); });
        QTest::newRow("outra maneira de o escrever") << std::function([](Sistema &s) {
            return s.Pasta() + u"/./../"_s + QDir(s.Pasta()).dirName() + u"//morvex.mdb"_s;
        });
        if (outros_nomes::ha_atalhos)
            QTest::newRow("um atalho") << std::function([](Sistema &s) {
                const QString atalho = s.Ficheiro(u"atalho.mdb"_s);
                return outros_nomes::Fazer_Atalho(s.Base(), atalho) ? atalho : QString();
            });
        QTest::newRow("um segundo nome do mesmo ficheiro") << std::function([](Sistema &s) {
            const QString nome = s.Ficheiro(u"segundo.mdb"_s);
            return outros_nomes::Fazer_Segundo_Nome(s.Base(), nome) ? nome : QString();
        });
        if (outros_nomes::ha_atalhos)
            QTest::newRow("um atalho que se diz de texto") << std::function([](Sistema &s) {
                const QString atalho = s.Ficheiro(u"atalho.dat"_s);
                return outros_nomes::Fazer_Atalho(s.Base(), atalho) ? atalho : QString();
            });
    }
    void a_base_em_uso_nao_se_importa_para_si_mesma()
    {
        SO_NUM_FICHEIRO("its path");
        QFETCH(std::function<QString(Sistema &)>, caminho);
        Programa p;
        p.s.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}});
        const QString escolhido = caminho(p.s);
        QVERIFY(!escolhido.isEmpty());
        p.s.geral.CaminhoBD.clear(); // whatever became of the setting, it is the open file that counts
        p.s.caixas.Espera(base_em_uso + escolhido, 16, p.s.Texto(82));
        QVERIFY(p.Recusada(escolhido));
        QVERIFY(!p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista"_s), QStringList{u"Ana"_s});
    }

    void uma_base_mais_velha_diz_porque_se_recusa_tambem()
    {
        SO_NUM_FICHEIRO("its path");
        Programa p;
        p.s.Escrever(u"DELETE FROM TblIdiomas WHERE ID > 273"_s);
        p.s.caixas.Espera(base_em_uso + p.s.Base(), 16, p.s.Texto(82));
        QVERIFY(p.Recusada(p.s.Base()));
        QVERIFY(!p.s.processo.Terminou());
    }

    void uma_copia_da_base_em_uso_importa_se()
    {
        SO_NUM_FICHEIRO("its path");
        Programa p;
        p.s.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Grupo"_s, Value(1)}});
        const QString copia = p.s.Ficheiro(u"copia.mdb"_s);
        QVERIFY(QFile::copy(p.s.Base(), copia));
        p.Fundir(copia, {});
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista"_s), (QStringList{u"Ana"_s, u"Ana"_s}));
    }

    // Once it is open nobody waits for the file, and its owner may do with it as he likes.
    void uma_base_aberta_nao_prende_o_seu_ficheiro_nem_espera_por_ele()
    {
        BasePropria antiga;
        antiga.base.Novo_Contacto({{u"Nome"_s, Value(u"Ana"_s)}, {u"Grupo"_s, Value(1)}});
        Programa p;
        DE2 de2(antiga.Caminho());
        const Trancada tranca(antiga.base);
        antiga.base.Escrever(u"DELETE FROM TblGrupos"_s);
        Fusao(p.s.geral, de2, {1, 0, 0}).Correr();
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Grupo FROM TblLista"_s), QStringList{u"Ana|1"_s});
    }

    void uma_base_com_diario_adiantado_le_se_inteira_e_nada_fica_ao_lado_data()
    {
        QTest::addColumn<bool>("com_diario");
        QTest::newRow("o diário guarda ainda linhas") << true;
        QTest::newRow("sem diário") << false;
    }
    void uma_base_com_diario_adiantado_le_se_inteira_e_nada_fica_ao_lado()
    {
        QFETCH(bool, com_diario);
        BasePropria antiga;
        antiga.base.Ler(u"PRAGMA journal_mode=WAL"_s);
        antiga.base.Ler(u"PRAGMA wal_autocheckpoint=0"_s);
        antiga.base.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Ana', 1)"_s);
        if (!com_diario) antiga.base.Ler(u"PRAGMA wal_checkpoint(TRUNCATE)"_s);
        // As a program leaves it that was ended at once: without the index of the journal.
        const QTemporaryDir outra;
        const QString copia = outra.filePath(u"antiga.mdb"_s);
        QVERIFY(QFile::copy(antiga.Caminho(), copia));
        if (com_diario) QVERIFY(QFile::copy(antiga.Caminho() + u"-wal"_s, copia + u"-wal"_s));
        const QStringList antes = Vizinhos(copia);
        const QByteArray bytes = Conteudo(copia);
        const QByteArray diario = Conteudo(copia + u"-wal"_s);
        Programa p;
        p.Fundir(copia, {});
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista"_s), QStringList{u"Ana"_s});
        QCOMPARE(Vizinhos(copia), antes);
        QVERIFY(Conteudo(copia) == bytes);
        QVERIFY(Conteudo(copia + u"-wal"_s) == diario);
    }

    void uma_base_cujas_tabelas_sao_vistas_recusa_se_data()
    {
        QTest::addColumn<QString>("tabela");
        for (const char *tabela :
             {"TblLista", "TblGrupos", "TblUsers", "TblMemos", "TblTarefas", "TblFotografias", "TblCartoes"})
            QTest::newRow(tabela) << QString::fromLatin1(tabela);
    }
    void uma_base_cujas_tabelas_sao_vistas_recusa_se()
    {
        QFETCH(QString, tabela);
        BasePropria antiga;
        antiga.Encher(2, 10);
        antiga.base.Escrever(u"ALTER TABLE %1 RENAME TO Outra"_s.arg(tabela));
        antiga.base.Escrever(u"CREATE VIEW %1 AS SELECT * FROM Outra"_s.arg(tabela));
        Programa p;
        p.s.caixas.Espera(p.s.Texto(87) + u"\r\n"_s + antiga.Caminho(), 16, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), nullptr);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(!p.s.processo.Terminou());
        QCOMPARE(Tudo(p.s), QStringList{u"0|0|0|0"_s});
    }

    // As many groups as rows can be counted, and each contact in the one of its name.
    void trinta_e_dois_mil_grupos_vem_todos()
    {
        constexpr int quantos = 32767;
        BasePropria antiga;
        antiga.base.Escrever(u"DELETE FROM TblGrupos"_s);
        const QString fonte =
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "_s.arg(quantos);
        antiga.base.Escrever(
            fonte + u"INSERT INTO TblGrupos (ID, NomeGrupo) SELECT i+100000, 'Grupo ' || i FROM n"_s);
        antiga.base.Escrever(fonte +
                             u"INSERT INTO TblLista (Nome, Grupo) SELECT 'Grupo ' || i, i+100000 FROM n"_s);
        Programa p;
        p.s.Novo_Grupo(u"GRUPO 7"_s, 3); // somebody's own: it is of that name all the same
        p.s.caixas.Espera_Qualquer(48, p.s.Texto(82));
        p.Escolher(antiga.Caminho(), [](frmImportarMDB &form) {
            form.cmdSeguinte->click();
            form.reject();
        });
        QCOMPARE(
            p.s.Linhas(
                u"SELECT count(*) FROM TblLista JOIN TblGrupos ON Grupo=TblGrupos.ID WHERE Nome=NomeGrupo"_s),
            QStringList{QString::number(quantos)});
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblGrupos WHERE ID > 6"_s),
                 QStringList{QString::number(quantos)});
        QCOMPARE(p.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID=7"_s), QStringList{u"GRUPO 7"_s});
    }

    void uma_fusao_pede_no_maximo_quatro_vezes_o_tamanho_da_base_data()
    {
        QTest::addColumn<bool>("propria");
        QTest::newRow("própria") << true;
        QTest::newRow("antiga") << false;
    }
    void uma_fusao_pede_no_maximo_quatro_vezes_o_tamanho_da_base()
    {
        if (!memoria::Medida::Possivel()) QSKIP("nothing measures what a process asks for here");
        constexpr std::size_t de_sempre = std::size_t{4} << 20; // what any merge takes, of the smallest file
        QFETCH(bool, propria);
        BasePropria grande;
        if (propria) grande.Encher(5000, 8000);
        const Desempacotado antiga(Dado(u"grande.mdb.xz"_s));
        const QString caminho = propria ? grande.Caminho() : antiga.Caminho();
        const auto tamanho = static_cast<std::size_t>(QFileInfo(caminho).size());
        Programa p;
        const memoria::Medida medida;
        {
            DE2 de2(caminho);
            Fusao(p.s.geral, de2, {32767, 32767, 32767}).Correr();
        }
        qInfo("a file of %.1f MB took %.1f MB", static_cast<double>(tamanho) / 1e6,
              static_cast<double>(medida.Maximo()) / 1e6);
        QVERIFY(medida.Maximo() > tamanho / 2); // it was measured
        QVERIFY2(medida.Maximo() <= 4 * tamanho + de_sempre, qPrintable(QString::number(medida.Maximo())));
    }

    void um_ficheiro_demasiado_grande_recusa_se_e_diz_porque_data()
    {
        QTest::addColumn<QByteArray>("inicio");
        QTest::newRow("própria") << QByteArray("SQLite format 3\0", 16);
        QTest::newRow("antiga") << QByteArray("\0\1\0\0Standard Jet DB\0\1", 21);
    }
    void um_ficheiro_demasiado_grande_recusa_se_e_diz_porque()
    {
        constexpr qint64 um_a_mais = (qint64{256} << 20) + 1;
        QFETCH(QByteArray, inicio);
        Programa p;
        QFile enorme(p.s.Ficheiro(u"enorme.mdb"_s));
        QVERIFY(enorme.open(QIODevice::WriteOnly) && enorme.write(inicio) == inicio.size());
        QVERIFY(enorme.resize(um_a_mais - 1)); // nothing but holes
        QVERIFY(!DE2::Grande_Demais(enorme.fileName()));
        QVERIFY(enorme.resize(um_a_mais));
        enorme.close();
        p.s.caixas.Espera(ficheiro_grande + enorme.fileName(), 16, p.s.Texto(82));
        const memoria::Medida medida;
        QVERIFY(p.Recusada(enorme.fileName()));
        QVERIFY(medida.Maximo() < std::size_t{64} << 20);
        QVERIFY(!p.s.processo.Terminou());
        VERIFICAR_FALHA(DE2{enorme.fileName()}, Failure::StoreError);
        QCOMPARE(teste::Falha_Dita([&] { DE2{enorme.fileName()}; }),
                 (QStringList{enorme.fileName(), u"The file is too large: "_s + enorme.fileName()}));
    }

    // What stands in a side file is read too.
    void um_ficheiro_pequeno_com_um_diario_enorme_recusa_se_tambem()
    {
        SO_NUM_FICHEIRO("a copy of it");
        Programa p;
        const QString pequena = p.s.Ficheiro(u"pequena.mdb"_s);
        QVERIFY(QFile::copy(p.s.Base(), pequena));
        QVERIFY(!DE2::Grande_Demais(pequena));
        QFile diario(pequena + u"-wal"_s);
        QVERIFY(diario.open(QIODevice::WriteOnly) && diario.resize(DE2::maior_ficheiro)); // nothing but holes
        diario.close();
        p.s.caixas.Espera(ficheiro_grande + pequena, 16, p.s.Texto(82));
        QVERIFY(p.Recusada(pequena));
        VERIFICAR_FALHA(DE2{pequena}, Failure::StoreError);
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        Programa p;
        p.s.Perder_Texto(43);
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
        VERIFICAR_FALHA(p.main.Importar->trigger(), Failure::InvalidUseOfNull);
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
    }

    // Pages of rows that all lead to one, a few of them or many: the other tables come.
    void uma_tabela_estragada_de_qualquer_tamanho_deixa_as_outras()
    {
        const Desempacotado sa(Dado(u"limite_32768.mdb.xz"_s));
        QByteArray bytes = Conteudo(sa.Caminho());
        const std::vector<qsizetype> paginas = Paginas_De_Linhas(bytes);
        QVERIFY(paginas.size() > 100);
        CopiaEstragada copia(u"copia.mdb"_s);
        const std::size_t passo = paginas.size() / 100;
        for (std::size_t feitas = 1; feitas < paginas.size() / 2; ++feitas) {
            Apontar_Tudo_Para(bytes, paginas[feitas], paginas[0]);
            if (feitas % passo != 0) continue;
            DE2 de2(copia.Guardar(bytes)); // raises nothing
            QCOMPARE(de2.Abrir(DE2::Morvex5_Count_Memos).RecordCount(), 1);
        }
        DE2 de2(copia.Guardar(bytes));
        VERIFICAR_FALHA(de2.Abrir(DE2::Morvex5_Count_Registos), Failure::StoreError);
    }

    void um_tubo_com_nome_de_base_nao_prende_o_programa()
    {
        if (!outros_nomes::ha_tubos) QSKIP("no folder holds a pipe here");
        Programa p;
        const QString tubo = p.s.Ficheiro(u"tubo.mdb"_s);
        QVERIFY(outros_nomes::Fazer_Tubo(tubo));
        VERIFICAR_FALHA(DE2{tubo}, Failure::StoreError);
        VERIFICAR_FALHA(JetFile{tubo}, Failure::StoreError);
    }
};

MORVEX_TESTE(TestFrmImportarMDB)
#include "test_frmImportarMDB.moc"
