// What the export dialog writes, opened by an office suite that is not ours and compared with the database,
// cell by cell: workbooks by way of CSV, texts and documents by way of the suite's own XML.
#include "interchange/frmExportar.h"
#include "report/CrystalReport.h"
#include "report/ReportPreview.h"
#include "report/writers/TextWidth.h"
#include "printing/ComRelatorios.h"
#include "printing/frmImprimir.h"

#include <memory>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace
{
using Quadro = QList<QStringList>;
enum Formato { Excel, Texto, Word };

QByteArray Bytes(const QString &ficheiro)
{
    QFile file(ficheiro);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Has the suite write the files anew in another format, beside them. It has a profile of its own and two
// minutes.
bool Converter(const QString &pasta, const QString &formato, const QStringList &ficheiros)
{
    QProcess suite;
    suite.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    suite.start(u"timeout"_s, QStringList{u"-k"_s, u"5"_s, u"120"_s, u"soffice"_s,
                                          u"-env:UserInstallation=file://%1/perfil"_s.arg(pasta),
                                          u"--headless"_s, u"--norestore"_s, u"--nolockcheck"_s,
                                          u"--convert-to"_s, formato, u"--outdir"_s, pasta} +
                                  ficheiros);
    return suite.waitForFinished(130'000) && suite.exitCode() == 0;
}

bool Ha_Suite() { return !QStandardPaths::findExecutable(u"soffice"_s).isEmpty(); }

// The rows of a CSV file in which texts stand between quotes and nothing else does. What is no text is
// marked, for no cell of an exported list is a number, a date or a formula.
Quadro Do_CSV(const QByteArray &csv)
{
    const QString texto = QString::fromUtf8(csv);
    Quadro linhas;
    QStringList linha;
    for (qsizetype i = 0; i < texto.size(); ++i) {
        QString celula;
        if (texto[i] == u'"') {
            for (++i; i < texto.size(); ++i) {
                if (texto[i] == u'"' && (i + 1 == texto.size() || texto[i + 1] != u'"')) break;
                if (texto[i] == u'"') ++i;
                celula += texto[i];
            }
            ++i;
        } else {
            while (i < texto.size() && texto[i] != u',' && texto[i] != u'\n')
                celula += texto[i++];
            if (!celula.isEmpty()) celula.prepend(u"<no text> "_s);
        }
        linha << celula;
        if (i < texto.size() && texto[i] == u',') {
            if (i + 1 == texto.size() || texto[i + 1] == u'\n')
                linha << QString(), ++i;
            else
                continue;
        }
        linhas << std::exchange(linha, {});
    }
    return linhas;
}

// The paragraphs of a text document in the suite's XML: of its body, or of the page's header.
QStringList Paragrafos(const QByteArray &fodt, bool do_cabecalho = false)
{
    QXmlStreamReader xml(fodt);
    const QString onde = do_cabecalho ? u"header"_s : u"text"_s;
    QStringList paragrafos;
    int dentro = 0, paragrafo = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        const bool do_texto = xml.namespaceUri().endsWith(":text:1.0"_L1);
        const bool lugar = xml.name() == onde && !do_texto;
        if (xml.isStartElement()) {
            if (lugar) ++dentro;
            if (dentro == 0 || !do_texto) continue;
            if (xml.name() == "p"_L1 && paragrafo++ == 0) paragrafos << QString();
            if (xml.name() == "tab"_L1) paragrafos.last() += u'\t';
            if (xml.name() == "line-break"_L1) paragrafos.last() += u'\n';
            if (xml.name() == "s"_L1) {
                const auto quantos =
                    xml.attributes().value(u"urn:oasis:names:tc:opendocument:xmlns:text:1.0"_s, u"c"_s);
                paragrafos.last() += QString(quantos.isEmpty() ? 1 : quantos.toInt(), u' ');
            }
        } else if (xml.isEndElement()) {
            if (lugar) --dentro;
            if (dentro > 0 && do_texto && xml.name() == "p"_L1) --paragrafo;
        } else if (xml.isCharacters() && paragrafo > 0) {
            paragrafos.last() += xml.text();
        }
    }
    if (xml.hasError()) paragrafos << xml.errorString();
    return paragrafos;
}

QString Sem_Espacos(QString texto)
{
    return texto.removeIf([](QChar letra) { return letra.isSpace(); });
}

// The cells of the table in a text file, heads first. Columns begin where the rule has its dashes; a record
// goes on in the lines whose first column is empty. Lines were broken to fit their columns, so blanks do not
// count.
Quadro Da_Tabela(const QStringList &paragrafos)
{
    const qsizetype regua =
        std::find_if(paragrafos.begin(), paragrafos.end(), [](const auto &p) { return p.startsWith(u'-'); }) -
        paragrafos.begin();
    if (regua < 1 || regua == paragrafos.size()) return {};
    QList<int> inicios{0};
    for (int i = 1; i < paragrafos[regua].size(); ++i)
        if (paragrafos[regua][i] == u'-' && paragrafos[regua][i - 1] == u' ') inicios << i;

    const auto cortar = [&](const QString &linha) {
        QStringList celulas(inicios.size());
        qsizetype coluna = 0;
        int lugar = 0;
        for (qsizetype i = 0; i < linha.size();) {
            const QString letra = linha.mid(i, linha[i].isHighSurrogate() ? 2 : 1);
            while (coluna + 1 < inicios.size() && lugar >= inicios[coluna + 1])
                ++coluna;
            celulas[coluna] += letra;
            lugar += textWidth(letra);
            i += letra.size();
        }
        return celulas;
    };
    Quadro linhas{cortar(paragrafos[regua - 1])};
    for (qsizetype i = regua + 1; i < paragrafos.size(); ++i) {
        const QStringList celulas = cortar(paragrafos[i]);
        if (linhas.size() == 1 || !celulas.first().trimmed().isEmpty())
            linhas << celulas;
        else
            for (qsizetype c = 0; c < celulas.size(); ++c)
                linhas.last()[c] += celulas[c];
    }
    for (QStringList &linha : linhas)
        for (QString &celula : linha)
            celula = Sem_Espacos(celula);
    return linhas;
}

// The title and the labelled texts of a text file in blocks: labels of that width at the most, and a text
// goes on in lines that are indented as far.
Quadro Dos_Blocos(const QStringList &paragrafos, int rotulos)
{
    Quadro linhas;
    for (const QString &paragrafo : paragrafos) {
        const QString rotulo = paragrafo.left(rotulos + 2);
        if (paragrafo.isEmpty()) continue;
        if (rotulo.trimmed().isEmpty() && !linhas.isEmpty())
            linhas.last().last() += paragrafo.sliced(rotulos + 2);
        else if (linhas.isEmpty())
            linhas << QStringList{paragrafo};
        else
            linhas << QStringList{rotulo, paragrafo.sliced(rotulos + 2)};
    }
    for (QStringList &linha : linhas)
        for (QString &celula : linha)
            celula = Sem_Espacos(celula);
    return linhas;
}

QString Nota_De_100_KB()
{
    QString nota;
    for (int i = 0; nota.size() < 100'000; ++i)
        nota += u"Absatz %1 über Größe und Maß. "_s.arg(i);
    return nota.trimmed();
}

// An installation whose contacts try the formats' patience, and the dialog over the real report control.
struct Instalacao {
    explicit Instalacao(const QString &idioma) : s(Sistema::Estado::Semeado, idioma)
    {
        ListaNomes.setObjectName(u"ListaNomes"_s);
        const QDir enviados(qEnvironmentVariable("MORVEX_ENVIADOS"));
        for (const QString &definicao : enviados.entryList({u"*.rpt"_s}))
            QFile::copy(enviados.filePath(definicao), s.Ficheiro(definicao));
        Contacto(u"Άννα Παπαδοπούλου"_s, u"+30 210 0000001"_s, u"07"_s);
        Contacto(u"Дмитрий Ёлкин"_s, u"007"_s, u"3"_s);
        Contacto(u"王小明"_s, u"00351 219"_s, u"12"_s);
        Contacto(u"Zoë \"Zo\" Ångström, Lda; & <filhos>"_s, u"=1+1"_s, u"01"_s);
        Contacto(u"😀 Abel {\\par}"_s, u"'219"_s, {});
        Contacto(u"Fórmulas"_s, u"@SUM(A1:A9)"_s, u"Maio"_s, u"-12"_s, u"1e5"_s, u"12-03-2020"_s, u"1,5"_s,
                 u"TRUE"_s);
        s.Novo_Contacto({{u"Nome"_s, u"Linhas"_s},
                         {u"Telefone1"_s, u"219\t220"_s},
                         {u"Telefone2"_s, u"219\r\n220"_s},
                         {u"Fax"_s, u"fim"_s},
                         {u"Morada"_s, u"Rua Direita 5\r\n\r\n1000-001  Lisboa"_s},
                         {u"Obs"_s, u"uma\r\nduas\ntrês\rquatro"_s}});
        s.Novo_Contacto({{u"Nome"_s, u"Comprida"_s}, {u"Obs"_s, Nota_De_100_KB()}});
        s.Novo_Contacto({{u"Nome"_s, u"Nada"_s}, {u"Telefone1"_s, nullptr}, {u"Obs"_s, nullptr}});
    }

    void Contacto(const QString &nome, const QString &telefone, const QString &mes,
                  const QString &telefone2 = {}, const QString &fax = {}, const QString &telemovel1 = {},
                  const QString &telemovel2 = {}, const QString &telemovel3 = {})
    {
        s.Novo_Contacto({{u"Nome"_s, nome},
                         {u"Telefone1"_s, telefone},
                         {u"Telefone2"_s, telefone2},
                         {u"Fax"_s, fax},
                         {u"Telemovel1"_s, telemovel1},
                         {u"Telemovel2"_s, telemovel2},
                         {u"Telemovel3"_s, telemovel3},
                         {u"Dia"_s, u"5"_s},
                         {u"Mes"_s, mes},
                         {u"Ano"_s, u"1980"_s},
                         {u"Email1"_s, u"a@b.example"_s},
                         {u"Website"_s, u"http://b.example/?a=1&b=%20"_s},
                         {u"Grupo"_s, 1}});
    }

    QString Exportar(const QString &nome, Formato formato, bool lista, const QString &grupo = {})
    {
        const QString ficheiro = s.Ficheiro(nome);
        frmExportar form(s.geral, controlo, ListaNomes);
        form.ComboExportar->setListIndex(formato);
        (lista ? form.opcoes->OptionLista : form.opcoes->OptionMemo)->click();
        if (!grupo.isEmpty()) form.opcoes->ComboGrupos->ChooseText(grupo);
        s.dialogos.textos = {ficheiro};
        form.cmdExportar->click();
        return ficheiro;
    }

    // As the report sorts: by name, equal names by ID. A cell keeps its lines, whatever parted them in the
    // store.
    Quadro Da_Base(const QString &colunas, const QString &de = u"TblLista"_s)
    {
        Quadro linhas;
        for (Recordset rs =
                 s.Ler(u"SELECT %1 FROM %2 ORDER BY TblLista.Nome, TblLista.ID"_s.arg(colunas, de));
             !rs.Eof(); rs.MoveNext()) {
            QStringList linha = rs.Row();
            for (QString &celula : linha)
                celula = celula.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').trimmed();
            linhas << linha;
        }
        return linhas;
    }
    Quadro Lista_Da_Base()
    {
        return Da_Base(
            u"Nome, coalesce(Telefone1, ''), Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3"_s);
    }
    Quadro Fichas_Da_Base()
    {
        Quadro linhas = Da_Base(u"Nome, coalesce(NomeGrupo, ''), Morada, coalesce(Telefone1, ''), Telefone2, "
                                u"Fax, Telemovel1, Telemovel2, "
                                "Telemovel3, Email1, Email2, Website, Dia, Mes, Ano, coalesce(Obs, '')"_s,
                                u"TblLista LEFT JOIN TblGrupos ON TblGrupos.ID = TblLista.Grupo"_s);
        for (QStringList &linha : linhas) {
            const int mes = linha[13].toInt();
            const QString nome = mes > 0 ? s.Texto(13 + mes) : linha[13];
            linha[12] = (linha[12] + u' ' + nome + u' ' + linha[14]).trimmed();
            linha.remove(13, 2);
        }
        return linhas;
    }

    Sistema s;
    QWidget janela;
    ListBox ListaNomes{&janela};
    CrystalReport controlo{s.caixas, s.dialogos, s.relogio, [this] { return s.geral.IdiomaActual; }};
};

// Names the first cell that differs, which a comparison of the whole would not.
void Comparar(const Quadro &lidas, const Quadro &esperadas)
{
    for (qsizetype l = 0; l < std::min(lidas.size(), esperadas.size()); ++l) {
        QCOMPARE(lidas[l].size(), esperadas[l].size());
        for (qsizetype c = 0; c < esperadas[l].size(); ++c)
            QVERIFY2(lidas[l][c] == esperadas[l][c],
                     qPrintable(u"row %1, column %2: read %3, expected %4"_s.arg(l).arg(c).arg(
                         lidas[l][c].left(200), esperadas[l][c].left(200))));
    }
    QCOMPARE(lidas.size(), esperadas.size());
}

Quadro Sem_Espacos(Quadro linhas)
{
    for (QStringList &linha : linhas)
        for (QString &celula : linha)
            celula = Sem_Espacos(celula);
    return linhas;
}

const auto csv = u"csv:Text - txt - csv (StarCalc):44,34,76,1,,0,true,true,false,false,false,0"_s;
} // namespace

class TestExportacao : public QObject
{
    Q_OBJECT

    std::unique_ptr<Instalacao> i_;
    QStringList
        cabecas_da_lista_; // in the program's language, though nothing has been printed before the lists
    QStringList cabecas_das_fichas_;

    QByteArray Lido(const QString &nome) const { return Bytes(i_->s.Ficheiro(nome)); }

    // The list's head and records as a document shows them: nothing but a tab parts two cells.
    static QStringList Celulas(const QString &paragrafo) { return paragrafo.split(u'\t'); }

    // The heads of these texts, as no caption would have them; those without a text are in no language.
    QStringList Cabecas(std::initializer_list<int> textos)
    {
        QStringList cabecas;
        for (const int texto : textos)
            cabecas << (texto == 0  ? u"Fax"_s
                        : texto < 0 ? u"E-mail %1"_s.arg(-texto)
                                    : i_->s.Texto(texto).remove(u':'));
        return cabecas;
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (!Ha_Suite()) QSKIP("there is no office suite");
        i_ = std::make_unique<Instalacao>(u"AlemaoDE"_s);
        i_->s.Novo_Grupo(u"Leer"_s);
        cabecas_da_lista_ = Cabecas({27, 28, 29, 0, 30, 31, 32});
        cabecas_das_fichas_ = Cabecas({27, 42, 36, 28, 29, 0, 30, 31, 32, -1, -2, 34, 38, 37});
        QStringList folhas{i_->Exportar(u"lista.xls"_s, Excel, true),
                           i_->Exportar(u"vazia.xls"_s, Excel, true, u"Leer"_s)};
        QStringList textos{i_->Exportar(u"lista_txt.txt"_s, Texto, true),
                           i_->Exportar(u"lista_doc.doc"_s, Word, true),
                           i_->Exportar(u"vazia_txt.txt"_s, Texto, true, u"Leer"_s),
                           i_->Exportar(u"vazia_doc.doc"_s, Word, true, u"Leer"_s)};

        folhas << i_->Exportar(u"sem_rotulos.xls"_s, Excel, false);

        // A preview leaves its labels in the control, in German.
        frmImprimir imprimir(i_->s.geral, i_->controlo, i_->ListaNomes);
        imprimir.CheckBoxPrevisualizar->setChecked(true);
        imprimir.cmdImprimir->click();
        i_->controlo.preview()->close();
        folhas << i_->Exportar(u"fichas.xls"_s, Excel, false);
        textos << i_->Exportar(u"fichas_txt.txt"_s, Texto, false)
               << i_->Exportar(u"fichas_doc.doc"_s, Word, false);

        QVERIFY(Converter(i_->s.Pasta(), csv, folhas));
        QVERIFY(Converter(i_->s.Pasta(), u"fodt"_s, textos));
    }
    void cleanupTestCase() { i_.reset(); }

    void a_lista_em_folha_tem_cada_celula_da_base_e_todas_sao_texto()
    {
        Comparar(Do_CSV(Lido(u"lista.csv"_s)), Quadro{cabecas_da_lista_} + i_->Lista_Da_Base());
    }

    void as_fichas_em_folha_tem_cada_celula_da_base_e_os_rotulos_da_impressao_anterior()
    {
        constexpr qsizetype celula = 32767;
        Quadro esperadas = i_->Fichas_Da_Base();
        for (QStringList &linha : esperadas)
            if (linha.last().size() > celula) linha.last() = linha.last().left(celula - 1) + u'…';
        Comparar(Do_CSV(Lido(u"fichas.csv"_s)), Quadro{cabecas_das_fichas_} + esperadas);
    }

    void as_fichas_sem_impressao_anterior_tem_os_rotulos_na_lingua_do_programa()
    {
        const QStringList rotulos = Do_CSV(Lido(u"sem_rotulos.csv"_s)).value(0);
        QCOMPARE(rotulos, cabecas_das_fichas_);
        QCOMPARE(rotulos.value(1), u"Gruppe"_s);
        QCOMPARE(rotulos.value(13), u"Notizen"_s);
    }

    void a_lista_em_texto_tem_cada_celula_da_base()
    {
        const QStringList paragrafos = Paragrafos(Lido(u"lista_txt.fodt"_s));
        QCOMPARE(paragrafos.value(0), u"Telefonliste"_s);
        Comparar(Da_Tabela(paragrafos), Sem_Espacos(Quadro{cabecas_da_lista_} + i_->Lista_Da_Base()));
    }

    void as_fichas_em_texto_tem_cada_celula_da_base_e_a_nota_inteira()
    {
        Quadro esperadas{{u"Memo"_s}};
        for (const QStringList &registo : i_->Fichas_Da_Base())
            for (qsizetype c = 0; c < registo.size(); ++c)
                if (!registo[c].isEmpty()) esperadas << QStringList{cabecas_das_fichas_[c], registo[c]};
        Comparar(Dos_Blocos(Paragrafos(Lido(u"fichas_txt.fodt"_s)), textWidth(u"Geburtstag"_s)),
                 Sem_Espacos(esperadas));
    }

    // One contact has a number of two lines, so the list stands in blocks: each field that isn't empty behind
    // its label.
    void a_lista_em_documento_tem_cada_celula_da_base()
    {
        Comparar_Blocos(u"lista_doc.fodt"_s, u"Telefonliste"_s, cabecas_da_lista_, i_->Lista_Da_Base());
    }
    void as_fichas_em_documento_tem_cada_celula_da_base_e_a_nota_inteira()
    {
        Comparar_Blocos(u"fichas_doc.fodt"_s, u"Memo"_s, cabecas_das_fichas_, i_->Fichas_Da_Base());
    }

    void sem_registos_abrem_se_na_mesma_com_as_cabecas()
    {
        Comparar(Do_CSV(Lido(u"vazia.csv"_s)), Quadro{cabecas_da_lista_});
        Comparar(Da_Tabela(Paragrafos(Lido(u"vazia_txt.fodt"_s))), Sem_Espacos(Quadro{cabecas_da_lista_}));
        QCOMPARE(Paragrafos(Lido(u"vazia_doc.fodt"_s)).value(0), u"Telefonliste"_s);
        QCOMPARE(Celulas(Paragrafos(Lido(u"vazia_doc.fodt"_s), true).value(0)), cabecas_da_lista_);
    }

    void com_32767_contactos_esta_la_cada_um()
    {
        if (!Ha_Suite()) QSKIP("there is no office suite");
        Instalacao grande(u"PortuguesPT"_s);
        grande.s.Escrever(u"DELETE FROM TblLista"_s);
        grande.s.Escrever(
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32767) "
            "INSERT INTO TblLista (Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3) "
            "SELECT 'Контакт ' || (i * 7919 % 32767), '00' || i, '', '=' || i, '', '', '+' || i FROM n"_s);
        const QString folha = grande.Exportar(u"lista.xls"_s, Excel, true);
        const QStringList textos{grande.Exportar(u"lista_txt.txt"_s, Texto, true),
                                 grande.Exportar(u"lista_doc.doc"_s, Word, true)};
        const QString pasta = grande.s.Pasta();
        QVERIFY(Converter(pasta, csv, {folha}));
        QVERIFY(Converter(pasta, u"fodt"_s, textos));

        const QStringList cabecas{u"Nome"_s,        u"Telefone 1"_s,  u"Telefone 2"_s, u"Fax"_s,
                                  u"Telemóvel 1"_s, u"Telemóvel 2"_s, u"Telemóvel 3"_s};
        const Quadro esperadas = Quadro{cabecas} + grande.Lista_Da_Base();
        QCOMPARE(esperadas.size(), 32768);
        Comparar(Do_CSV(Bytes(pasta + u"/lista.csv"_s)), esperadas);
        Comparar(Da_Tabela(Paragrafos(Bytes(pasta + u"/lista_txt.fodt"_s))), Sem_Espacos(esperadas));
        const QByteArray documento = Bytes(pasta + u"/lista_doc.fodt"_s);
        Quadro lidas{Celulas(Paragrafos(documento, true).value(0))};
        for (const QString &paragrafo : Paragrafos(documento).sliced(1))
            lidas << Celulas(paragrafo);
        if (lidas.last() == QStringList{QString()}) lidas.removeLast(); // the suite's own at the end
        Comparar(lidas, esperadas);
    }

private:
    void Comparar_Blocos(const QString &ficheiro, const QString &titulo, const QStringList &cabecas,
                         const Quadro &registos)
    {
        Quadro esperadas{{titulo}};
        for (const QStringList &registo : registos)
            for (qsizetype c = 0; c < registo.size(); ++c)
                if (!registo[c].isEmpty()) esperadas << QStringList{cabecas[c], registo[c]};
        Quadro lidas;
        for (const QString &paragrafo : Paragrafos(Lido(ficheiro))) {
            const qsizetype tabulador = paragrafo.indexOf(u'\t');
            lidas << (tabulador < 0
                          ? QStringList{paragrafo}
                          : QStringList{paragrafo.first(tabulador), paragrafo.sliced(tabulador + 1)});
        }
        if (lidas.last() == QStringList{QString()}) lidas.removeLast(); // the suite's own at the end
        Comparar(lidas, esperadas);
    }
};

MORVEX_TESTE(TestExportacao)
#include "test_exportacao.moc"
