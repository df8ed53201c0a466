// Older databases: every row of the sound ones, and a Failure, never a crash or a hang, from all others.
#include "jet/JetFile.h"
#include "testlib/CopiaEstragada.h"
#include "testlib/Desempacotado.h"
#include "testlib/Estragos.h"
#include "testlib/MemoriaPedida.h"
#include "testlib/OutrosNomes.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <numeric>
#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <random>

using namespace Qt::StringLiterals;

namespace
{
QString Amostra(const QString &nome) { return QFINDTESTDATA("fixtures/jet/" + nome); }

QByteArray Ler_Ficheiro(const QString &caminho)
{
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly)) qFatal("%s cannot be read", qPrintable(caminho));
    return ficheiro.readAll();
}

QJsonValue Json(const JetFile::Cell &celula)
{
    return std::visit(
        [](const auto &valor) -> QJsonValue {
            using Tipo = std::decay_t<decltype(valor)>;
            if constexpr (std::is_same_v<Tipo, std::monostate>)
                return QJsonValue::Null;
            else if constexpr (std::is_same_v<Tipo, QDateTime>)
                return valor.toString(u"yyyy-MM-ddTHH:mm:ss"_s);
            else
                return valor;
        },
        celula);
}

// The rows as the manifests have them: by their first cell, which is the ID.
QJsonArray Json(JetFile::Table tabela)
{
    std::sort(tabela.rows.begin(), tabela.rows.end(),
              [](const auto &a, const auto &b) { return std::get<qint64>(a[0]) < std::get<qint64>(b[0]); });
    QJsonArray linhas;
    for (const auto &linha : tabela.rows) {
        QJsonArray celulas;
        for (const auto &celula : linha)
            celulas << Json(celula);
        linhas << celulas;
    }
    return linhas;
}

QStringList Colunas(const QJsonObject &tabela)
{
    QStringList colunas;
    for (const QJsonValue &coluna : tabela[u"columns"].toArray())
        colunas << coluna[0].toString();
    return colunas;
}

constexpr int pagina = 4096;

// Where it hurts: in the heads of pages and the tables of their rows.
QByteArray Trocar_Bits_Dos_Cabecalhos(QByteArray bytes, std::mt19937 &acaso)
{
    constexpr int cabecalho = 80;
    for (int i = Ao_Acaso(acaso, 8); i >= 0; --i) {
        const int onde = Ao_Acaso(acaso, bytes.size() / pagina) * pagina + Ao_Acaso(acaso, cabecalho);
        bytes.data()[onde] = static_cast<char>(bytes[onde] ^ (1 << Ao_Acaso(acaso, 8)));
    }
    return bytes;
}

QByteArray Trocar_Paginas(QByteArray bytes, std::mt19937 &acaso)
{
    for (int i = Ao_Acaso(acaso, 4); i >= 0; --i) {
        const qsizetype uma = qsizetype{Ao_Acaso(acaso, bytes.size() / pagina)} * pagina;
        const qsizetype outra = qsizetype{Ao_Acaso(acaso, bytes.size() / pagina)} * pagina;
        std::swap_ranges(bytes.begin() + uma, bytes.begin() + uma + pagina, bytes.begin() + outra);
    }
    return bytes;
}

// The head of each file is encoded with the same key; what does so takes it back as well.
QByteArray Trocar_Cabecalho(QByteArray bytes)
{
    constexpr int inicio = 0x18;
    constexpr int fim = 0x98;
    const std::array<quint8, 4> chave{0xc7, 0xda, 0x39, 0x6b};
    std::array<quint8, 256> estado{};
    std::iota(estado.begin(), estado.end(), quint8{0});
    quint8 j = 0;
    for (std::size_t i = 0; i < estado.size(); ++i) {
        j = static_cast<quint8>(j + estado[i] + chave[i % chave.size()]);
        std::swap(estado[i], estado[j]);
    }
    quint8 i = 0;
    j = 0;
    for (int onde = inicio; onde < fim; ++onde) {
        j = static_cast<quint8>(j + estado[++i]);
        std::swap(estado[i], estado[j]);
        bytes[onde] = static_cast<char>(bytes[onde] ^ estado[static_cast<quint8>(estado[i] + estado[j])]);
    }
    return bytes;
}

// The numbers of the pages that hold the rows of the table with the most of them.
std::vector<int> Paginas_Da_Maior_Tabela(const QByteArray &bytes)
{
    constexpr int dona = 4;
    std::map<quint32, std::vector<int>> paginas;
    for (int i = 1; i < bytes.size() / pagina; ++i) {
        const char *inicio = bytes.constData() + qsizetype{i} * pagina;
        if (inicio[0] == 1 && qstrncmp(inicio + dona, "LVAL", 4) != 0)
            paginas[qFromLittleEndian<quint32>(inicio + dona)].push_back(i);
    }
    return std::max_element(paginas.begin(), paginas.end(),
                            [](const auto &a, const auto &b) { return a.second.size() < b.second.size(); })
        ->second;
}

// Clears the mask of values of the first row that holds that text. False where there is none.
bool Apagar_A_Mascara(QByteArray &bytes, const QByteArray &texto)
{
    constexpr int contagem = 12;
    constexpr int lugares = 14;
    constexpr quint16 onde = 0x1fff;
    const qsizetype achado = bytes.indexOf(texto);
    char *inicio = bytes.data() + achado / pagina * pagina;
    const auto lugar = [&](int i) { return qFromLittleEndian<quint16>(inicio + lugares + 2 * i) & onde; };
    for (int i = 0; achado >= 0 && i < qFromLittleEndian<quint16>(inicio + contagem); ++i) {
        const int fim = i == 0 ? pagina : lugar(i - 1);
        if (achado % pagina < lugar(i) || achado % pagina >= fim) continue;
        const int mascara = (qFromLittleEndian<quint16>(inicio + lugar(i)) + 7) / 8;
        std::fill(inicio + fim - mascara, inicio + fim, '\0');
        return true;
    }
    return false;
}

// Fills a page with rows that say no more than that they were moved to the first row of the other.
void Apontar_Tudo_Para(QByteArray &bytes, int qual, int outra)
{
    constexpr int contagem = 12;
    constexpr int lugares = 14;
    constexpr int tamanho = 4;
    constexpr quint16 mudada = 0x4000;
    constexpr int quantas = (pagina - lugares) / (tamanho + 2);
    char *inicio = bytes.data() + qsizetype{qual} * pagina;
    qToLittleEndian<quint16>(quantas, inicio + contagem);
    for (int i = 0; i < quantas; ++i) {
        const int onde = pagina - tamanho * (i + 1);
        qToLittleEndian<quint16>(static_cast<quint16>(onde | mudada), inicio + lugares + 2 * i);
        qToLittleEndian<quint32>(static_cast<quint32>(outra) << 8, inicio + onde);
    }
}
} // namespace

Q_DECLARE_METATYPE(Estrago)

// What a damaged file is said to lack; nothing for a sound one.
template<class Work> QString Dito(Work &&work)
{
    try {
        work();
    } catch (const Failure &failure) {
        if (failure.number() != Failure::StoreError || failure.source() != u"JetFile"_s) return u"?"_s;
        return failure.description();
    }
    return {};
}

class TestJetFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_linha_e_a_do_manifesto_data()
    {
        QTest::addColumn<QString>("manifesto");
        QTest::newRow("pequena") << u"pequena"_s;
        QTest::newRow("cifrada") << u"pequena"_s; // the same rows on encoded pages
        for (const auto *nome : {"vazia", "sem_utilizadores", "sem_idrepeticao", "sem_tblmemos"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void cada_linha_e_a_do_manifesto()
    {
        QFETCH(QString, manifesto);
        const QJsonObject tabelas =
            QJsonDocument::fromJson(Ler_Ficheiro(Amostra(manifesto + u".json"_s)))[u"tables"].toObject();
        QVERIFY(!tabelas.isEmpty());
        const JetFile base(Amostra(QLatin1String(QTest::currentDataTag()) + u".mdb"_s));
        QStringList nomes = base.tables();
        nomes.sort();
        QCOMPARE(nomes, tabelas.keys());
        for (const QString &nome : nomes) {
            const JetFile::Table tabela = base.read(nome);
            const QJsonObject esperada = tabelas[nome].toObject();
            QCOMPARE(tabela.columns, Colunas(esperada));
            QCOMPARE(tabela.rows.size(), esperada[u"count"].toInt());
            const QJsonArray linhas = Json(tabela);
            const QJsonArray certas = esperada[u"rows"].toArray();
            QCOMPARE(linhas.size(), certas.size());
            for (qsizetype i = 0; i < certas.size(); ++i)
                QCOMPARE(linhas[i], certas[i]);
        }
    }

    // Their manifests give the sum of a table's rows, written as the others write them, in the place of the
    // rows.
    void as_grandes_tem_as_linhas_do_manifesto_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::newRow("linhas mudadas de lugar, apagadas, memos de várias páginas") << u"grande"_s;
        QTest::newRow("mais contactos do que se contam em 16 bits") << u"limite_32768"_s;
    }
    void as_grandes_tem_as_linhas_do_manifesto()
    {
        QFETCH(QString, nome);
        const QJsonObject tabelas =
            QJsonDocument::fromJson(Ler_Ficheiro(Amostra(nome + u".json"_s)))[u"tables"].toObject();
        QCOMPARE(tabelas.size(), 9);
        const Desempacotado ficheiro(Amostra(nome + u".mdb.xz"_s));
        const JetFile base(ficheiro.Caminho());
        for (const QString &tabela : tabelas.keys()) {
            const QJsonObject esperada = tabelas[tabela].toObject();
            const JetFile::Table lida = base.read(tabela);
            QCOMPARE(lida.columns, Colunas(esperada));
            QCOMPARE(lida.rows.size(), esperada[u"count"].toInt());
            if (!esperada.contains(u"sha256")) continue;
            const QByteArray linhas = QJsonDocument(Json(lida)).toJson(QJsonDocument::Compact);
            QCOMPARE(QCryptographicHash::hash(linhas, QCryptographicHash::Sha256).toHex(),
                     esperada[u"sha256"].toString().toLatin1());
        }
    }

    void o_nome_de_uma_tabela_vale_em_maiusculas_e_minusculas()
    {
        const JetFile base(Amostra(u"pequena.mdb"_s));
        QCOMPARE(base.read(u"TBLMEMOS"_s).rows.size(), 9U);
    }

    void uma_tabela_que_falta_e_uma_falha()
    {
        const JetFile base(Amostra(u"sem_tblmemos.mdb"_s));
        QCOMPARE(Dito([&] { base.read(u"TblMemos"_s); }), u"there is no such table"_s);
        QCOMPARE(base.read(u"TblTarefas"_s).rows.size(), 24U);
    }

    void o_que_nao_e_uma_base_nao_abre_data()
    {
        QTest::addColumn<QString>("dito");
        QTest::newRow("com_palavra_passe") << u"the database has a password"_s;
        QTest::newRow("corrompida") << u"a page of the table lies beyond the end of the file"_s;
        QTest::newRow("zero_bytes") << u"no database: its size"_s;
        QTest::newRow("texto") << u"no database"_s;
        QTest::newRow("nao_existe") << u"no file"_s;
    }
    void o_que_nao_e_uma_base_nao_abre()
    {
        const QString nome = QString::fromLatin1(QTest::currentDataTag());
        const QString caminho = Amostra(u"pequena.mdb"_s).replace(u"pequena"_s, nome);
        QTEST(Dito([&] { JetFile{caminho}; }), "dito");
    }

    void menos_de_uma_pagina_ou_outras_palavras_a_frente_nao_sao_uma_base()
    {
        const QByteArray sa = Ler_Ficheiro(Amostra(u"pequena.mdb"_s));
        CopiaEstragada copia(u"copia.mdb"_s);
        const auto de = [&](const QByteArray &bytes) {
            const QString caminho = copia.Guardar(bytes);
            return Dito([&] { JetFile{caminho}; });
        };
        QCOMPARE(de(sa.left(4095)), u"no database: its size"_s);
        QCOMPARE(de(sa.left(4096)), u"a page lies beyond the end of the file"_s); // it has no catalogue
        QCOMPARE(de(QByteArray(sa).replace(4, 1, "X")), u"no database"_s);
        QCOMPARE(de(QByteArray(sa).replace(0, 1, "X")), QString()); // nobody knows what it is for
    }

    void um_ficheiro_que_ninguem_deixa_ler_nao_abre()
    {
        CopiaEstragada copia(u"copia.mdb"_s);
        const QString caminho = copia.Guardar(Ler_Ficheiro(Amostra(u"pequena.mdb"_s)));
        QVERIFY(QFile::setPermissions(QFileInfo(caminho).path(), QFile::Permissions(0x7777)));
        QVERIFY(QFile::setPermissions(caminho, {}));
        QString dito;
        bool possivel = false;
        {
            const SemPrivilegios ninguem;
            possivel = ninguem.Possivel() && SemPrivilegios::Ha_Direitos_Por_Ficheiro();
            if (possivel) dito = Dito([&] { JetFile{caminho}; });
        }
        QVERIFY(QFile::setPermissions(caminho, QFile::ReadOwner | QFile::WriteOwner));
        if (!possivel) QSKIP("the rights of an administrator cannot be put off here");
        QCOMPARE(dito, u"the file cannot be opened"_s);
    }

    void cada_byte_da_palavra_passe_conta()
    {
        constexpr int inicio = 0x42;
        constexpr int comprimento = 40;
        const QByteArray sa = Ler_Ficheiro(Amostra(u"pequena.mdb"_s));
        CopiaEstragada copia(u"copia.mdb"_s);
        for (int i = 0; i <= comprimento; ++i) {
            QByteArray bytes = sa;
            bytes[inicio + i] = static_cast<char>(bytes[inicio + i] ^ 1);
            const QString caminho = copia.Guardar(bytes);
            QCOMPARE(Dito([&] { JetFile{caminho}; }), i < comprimento ? u"the database has a password"_s : QString());
        }
    }

    // The password is masked with the whole days of that date.
    void a_data_em_que_foi_feita_serve_de_mascara_se_for_um_dia_data()
    {
        QTest::addColumn<double>("data");
        QTest::addColumn<qint32>("mascara");
        QTest::newRow("a day and a half") << 1.5 << 1;
        QTest::newRow("the last") << 2147483647.0 << 2147483647;
        QTest::newRow("the first") << -2147483647.0 << -2147483647;
        QTest::newRow("behind the last") << 2147483648.0 << 0;
        QTest::newRow("before the first") << -2147483648.0 << 0;
        QTest::newRow("none") << std::numeric_limits<double>::quiet_NaN() << 0;
    }
    void a_data_em_que_foi_feita_serve_de_mascara_se_for_um_dia()
    {
        QFETCH(double, data);
        QFETCH(qint32, mascara);
        CopiaEstragada copia(u"copia.mdb"_s);
        const auto dito = [&](qint32 posta) {
            QByteArray bytes = Trocar_Cabecalho(Ler_Ficheiro(Amostra(u"pequena.mdb"_s)));
            qToLittleEndian(data, bytes.data() + 0x72);
            for (int i = 0; i < 10; ++i)
                qToLittleEndian(posta, bytes.data() + 0x42 + 4 * i);
            const QString caminho = copia.Guardar(Trocar_Cabecalho(bytes));
            return Dito([&] { JetFile{caminho}; });
        };
        QCOMPARE(dito(mascara), QString());
        QCOMPARE(dito(mascara ^ 1), u"the database has a password"_s);
    }

    // The file has one byte at its end and takes no more room on the disk than that.
    void o_que_e_maior_do_que_o_formato_conhece_nao_se_le()
    {
        const QTemporaryDir pasta;
        const QString caminho = pasta.filePath(u"enorme.mdb"_s);
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && ficheiro.resize((qint64{2} << 30) + 1));
        ficheiro.close();
        QCOMPARE(Dito([&] { JetFile{caminho}; }), u"no database: its size"_s);
    }

    void outra_versao_do_formato_nao_abre()
    {
        constexpr int versao = 0x14;
        QByteArray bytes = Ler_Ficheiro(Amostra(u"pequena.mdb"_s));
        QCOMPARE(bytes[versao], '\x01');
        CopiaEstragada copia(u"copia.mdb"_s);
        for (const char outra : {'\x00', '\x02'}) {
            bytes[versao] = outra;
            const QString caminho = copia.Guardar(bytes);
            QCOMPARE(Dito([&] { JetFile{caminho}; }), u"a database of another version"_s);
        }
    }

    void um_ficheiro_cortado_nao_da_o_resto_como_se_fosse_tudo()
    {
        const JetFile base(Amostra(u"truncada_meio.mdb"_s));
        for (const QString &nome : {u"TblLista"_s, u"TblMemos"_s, u"TblTarefas"_s}) {
            const QString dito = Dito([&] { base.read(nome); });
            QVERIFY2(dito.startsWith(u"a page "_s) && dito.endsWith(u"lies beyond the end of the file"_s),
                     qPrintable(dito));
        }
        QVERIFY(!base.read(u"TblGrupos"_s).rows.empty()); // what is whole can still be read
    }

    // The same five thousand copies at every run.
    void copias_estragadas_acabam_em_linhas_ou_numa_falha_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<Estrago>("estrago");
        for (const auto *nome : {"pequena", "cifrada", "vazia", "sem_idrepeticao", "sem_tblmemos"}) {
            const QString ficheiro = QLatin1String(nome) + u".mdb"_s;
            QTest::addRow("%s, bits", nome) << ficheiro << Estrago(Trocar_Bits);
            QTest::addRow("%s, bits of page heads", nome) << ficheiro << Estrago(Trocar_Bits_Dos_Cabecalhos);
            QTest::addRow("%s, tail cut", nome) << ficheiro << Estrago(Cortar);
            QTest::addRow("%s, pages swapped", nome) << ficheiro << Estrago(Trocar_Paginas);
        }
    }
    void copias_estragadas_acabam_em_linhas_ou_numa_falha()
    {
        constexpr int copias = 250;
        constexpr qint64 paciencia = 2000; // ms a copy; a sound one takes some three
        constexpr std::size_t muita_memoria = std::size_t{256} << 20;
        QFETCH(QString, nome);
        QFETCH(Estrago, estrago);
        const QByteArray sa = Ler_Ficheiro(Amostra(nome));
        std::mt19937 acaso(20040517);
        CopiaEstragada copia(u"copia.mdb"_s);
        int lidas = 0;
        int com_falha = 0;
        std::size_t mais_memoria = 0;
        for (int i = 0; i < copias; ++i) {
            const QString caminho = copia.Guardar(estrago(sa, acaso));
            const memoria::Medida medida;
            QElapsedTimer relogio;
            relogio.start();
            const auto ler = [&] {
                const JetFile base(caminho);
                for (const QString &tabela : base.tables())
                    ++(skipFailure([&] { base.read(tabela); }) ? lidas : com_falha);
            };
            if (!skipFailure(ler)) ++com_falha;
            QVERIFY2(relogio.elapsed() < paciencia, qPrintable(u"copy %1 took too long"_s.arg(i)));
            QVERIFY2(medida.Maximo() < muita_memoria, qPrintable(u"copy %1 took too much"_s.arg(i)));
            mais_memoria = std::max(mais_memoria, medida.Maximo());
        }
        qInfo("%d tables read, %d failures, at most %.1f MB", lidas, com_falha,
              static_cast<double>(mais_memoria) / 1e6);
        QVERIFY(lidas > 0);
        QVERIFY(com_falha > 0);
        QVERIFY(memoria::Medida::Tirada(mais_memoria, static_cast<std::size_t>(sa.size()) / 2));
    }

    // Thousands of rows that all lead to one and the same: a small file that would fill the memory.
    void linhas_que_levam_todas_a_uma_so_sao_um_estrago()
    {
        constexpr std::size_t muita_memoria = std::size_t{256} << 20;
        const Desempacotado sa(Amostra(u"limite_32768.mdb.xz"_s));
        QByteArray bytes = Ler_Ficheiro(sa.Caminho());
        const std::vector<int> paginas = Paginas_Da_Maior_Tabela(bytes);
        QVERIFY(paginas.size() > 100);
        for (std::size_t i = 1; i < paginas.size(); ++i)
            Apontar_Tudo_Para(bytes, paginas[i], paginas[0]);
        CopiaEstragada copia(u"copia.mdb"_s);
        const QString caminho = copia.Guardar(bytes);
        const memoria::Medida medida;
        const JetFile base(caminho);
        VERIFICAR_FALHA(base.read(u"TblLista"_s), Failure::StoreError);
        QVERIFY2(medida.Maximo() < muita_memoria, qPrintable(QString::number(medida.Maximo())));
        QCOMPARE(base.read(u"TblRepeticao"_s).rows.size(), 5U);
    }

    // A row in whose mask no column has a value would read as an empty one: the number of a row is never
    // Null.
    void uma_linha_sem_o_seu_numero_e_um_estrago()
    {
        const JetFile base(Amostra(u"pequena.mdb"_s));
        const JetFile::Table contactos = base.read(u"TblLista"_s);
        const auto nome = std::get<QString>(contactos.rows.at(0).at(1));
        QByteArray bytes = Ler_Ficheiro(Amostra(u"pequena.mdb"_s));
        QVERIFY(Apagar_A_Mascara(bytes, nome.toLatin1()));
        CopiaEstragada copia(u"copia.mdb"_s);
        const JetFile estragada(copia.Guardar(bytes));
        QCOMPARE(Dito([&] { estragada.read(u"TblLista"_s); }), u"a row without a number"_s);
        QCOMPARE(estragada.read(u"TblTarefas"_s).rows.size(), 24U);
    }

    void um_tubo_com_nome_de_base_nao_prende_quem_o_abre()
    {
        if (!outros_nomes::ha_tubos) QSKIP("no folder holds a pipe here");
        const QTemporaryDir pasta;
        const QString tubo = pasta.filePath(u"tubo.mdb"_s);
        QVERIFY(outros_nomes::Fazer_Tubo(tubo));
        QCOMPARE(Dito([&] { JetFile{tubo}; }), u"no file"_s);
    }

    void uma_copia_cortada_da_tudo_ou_nada()
    {
        const QByteArray sa = Ler_Ficheiro(Amostra(u"pequena.mdb"_s));
        const JetFile inteira(Amostra(u"pequena.mdb"_s));
        std::mt19937 acaso(1900);
        CopiaEstragada copia(u"copia.mdb"_s);
        for (int i = 0; i < 200; ++i) {
            const QString caminho = copia.Guardar(Cortar(sa, acaso));
            skipFailure([&] {
                const JetFile base(caminho);
                for (const QString &nome : base.tables())
                    skipFailure([&] { QCOMPARE(Json(base.read(nome)), Json(inteira.read(nome))); });
            });
        }
    }
};

MORVEX_TESTE(TestJetFile)
#include "test_JetFile.moc"
