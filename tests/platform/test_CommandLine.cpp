// What the program understands of the words it was started with, and what it says to the others.
#include "platform/CommandLine.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Kind = CommandLine::Kind;

namespace
{
CommandLine Linha(const QStringList &palavras, const QString &idioma = u"InglesUK"_s)
{
    return {QStringList{u"morvex"_s} + palavras, {u"mdb"_s, u"vcf"_s}, u"1.2.3"_s, idioma};
}
} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

    QTemporaryDir pasta_;

    QString Ficheiro(const QString &nome) const
    {
        QFile ficheiro(pasta_.filePath(nome));
        return ficheiro.open(QIODevice::WriteOnly) ? ficheiro.fileName() : QString();
    }

private Q_SLOTS:
    void sem_palavras_o_programa_corre_a_vista()
    {
        const CommandLine linha = Linha({});
        QCOMPARE(linha.kind(), Kind::Run);
        QVERIFY(!linha.minimized());
        QVERIFY(linha.files().isEmpty());
        QCOMPARE(linha.text(), QString());
    }

    void minimized_corre_escondido()
    {
        const CommandLine linha = Linha({u"--minimized"_s});
        QCOMPARE(linha.kind(), Kind::Run);
        QVERIFY(linha.minimized());
    }

    void a_versao_e_uma_linha()
    {
        for (const QString &palavra : {u"--version"_s, u"-v"_s}) {
            const CommandLine linha = Linha({palavra});
            QCOMPARE(linha.kind(), Kind::Answer);
            QCOMPARE(linha.text(), u"Morvex 1.2.3\n"_s);
        }
    }

    void a_ajuda_diz_tudo_o_que_se_pode_pedir_e_nada_do_que_e_do_toolkit()
    {
        for (const QString &palavra : {u"--help"_s, u"-h"_s}) {
            const CommandLine linha = Linha({palavra});
            QCOMPARE(linha.kind(), Kind::Answer);
            for (const char *dito : {"--help", "--version", "--minimized", "[files...]", ".mdb"})
                QVERIFY2(linha.text().contains(QLatin1StringView(dito)), dito);
            QVERIFY(!linha.text().contains(u"--platform"_s));
        }
    }

    void cada_lingua_tem_a_sua_ajuda_e_as_suas_recusas()
    {
        QSet<QString> ditos;
        for (const char *idioma : {"PortuguesPT", "PortuguesBR", "InglesUK", "EspanholES", "ItalianoIT",
                                   "FrancesFR", "AlemaoDE"}) {
            const QString nome = QString::fromLatin1(idioma);
            ditos << Linha({u"--help"_s}, nome).text() << Linha({u"a.doc"_s}, nome).text();
        }
        QCOMPARE(ditos.size(), 2 * 7);
    }

    // Those of Brazil may well be those of Portugal.
    void cada_frase_tem_a_sua_lingua()
    {
        QMap<QString, QSet<QString>> ditas; // each sentence as every language says it
        const QStringList linguas{u"PortuguesPT"_s, u"InglesUK"_s,  u"EspanholES"_s,
                                  u"ItalianoIT"_s,  u"FrancesFR"_s, u"AlemaoDE"_s};
        for (const QString &lingua : linguas) {
            const QStringList ajuda = Linha({u"--help"_s}, lingua).text().split(u'\n');
            ditas[u"what the program is"_s] << ajuda.value(1);
            for (const QString &palavra : {u"--help"_s, u"--version"_s, u"--minimized"_s, u".mdb"_s})
                ditas[palavra] << ajuda.filter(palavra).value(0);
            for (const QString &recusada : {u"--nada"_s, u"a.doc"_s, u"/falta.mdb"_s}) {
                const QStringList linhas = Linha({recusada}, lingua).text().split(u'\n');
                ditas[recusada] << linhas.value(0);
                ditas[recusada + u", help"_s] << linhas.value(1);
            }
        }
        for (auto dita = ditas.cbegin(); dita != ditas.cend(); ++dita) {
            const QStringList todas = dita.value().values();
            QVERIFY2(todas.size() == linguas.size(), qPrintable(dita.key() + u": "_s + todas.join(u" | "_s)));
        }
    }

    // What a person reads, word by word; the lines of the help are broken where the toolkit likes.
    void a_ajuda_diz_em_cada_lingua_o_que_tem_a_dizer_data()
    {
        QTest::addColumn<QStringList>("frases"); // the program, the help, the version, minimized, the files
        QTest::newRow("PortuguesPT") << QStringList{
            u"Agenda de contactos com despertador e vigia do correio."_s, u"Mostra esta ajuda e termina."_s,
            u"Mostra a versão e termina."_s, u"Começa na área de notificação, sem mostrar a janela."_s,
            u"ficheiros Ficheiros a importar: contactos (.vcf, .csv) ou dados de uma versão "
            "anterior (.mdb, .dat)."_s};
        QTest::newRow("PortuguesBR") << QStringList{
            u"Agenda de contatos com despertador e monitor de e-mails."_s, u"Mostra esta ajuda e encerra."_s,
            u"Mostra a versão e encerra."_s, u"Inicia na bandeja do sistema, sem mostrar a janela."_s,
            u"arquivos Arquivos a importar: contatos (.vcf, .csv) ou dados de uma versão "
            "anterior (.mdb, .dat)."_s};
        QTest::newRow("InglesUK") << QStringList{
            u"Contact book with an alarm clock and a mail watcher."_s, u"Shows this help and ends."_s,
            u"Shows the version and ends."_s,
            u"Starts in the notification area, without showing the window."_s,
            u"files Files to import: contacts (.vcf, .csv) or data of an earlier release (.mdb, .dat)."_s};
        QTest::newRow("EspanholES") << QStringList{
            u"Agenda de contactos con despertador y aviso de correo."_s, u"Muestra esta ayuda y termina."_s,
            u"Muestra la versión y termina."_s,
            u"Se inicia en la bandeja del sistema, sin mostrar la ventana."_s,
            u"archivos Archivos que importar: contactos (.vcf, .csv) o datos de una versión "
            "anterior (.mdb, .dat)."_s};
        QTest::newRow("ItalianoIT") << QStringList{
            u"Rubrica con sveglia e controllo della posta."_s, u"Mostra questo aiuto e termina."_s,
            u"Mostra la versione e termina."_s,
            u"Si avvia nell’area di notifica, senza mostrare la finestra."_s,
            u"file File da importare: contatti (.vcf, .csv) o dati di una versione "
            "precedente (.mdb, .dat)."_s};
        QTest::newRow("FrancesFR") << QStringList{
            u"Carnet d’adresses avec réveil et surveillance du courrier."_s,
            u"Affiche cette aide et se termine."_s, u"Affiche la version et se termine."_s,
            u"Démarre dans la zone de notification, sans afficher la fenêtre."_s,
            u"fichiers Fichiers à importer\u00a0: contacts (.vcf, .csv) ou données d’une "
            "version antérieure (.mdb, .dat)."_s};
        QTest::newRow("AlemaoDE") << QStringList{
            u"Adressbuch mit Wecker und E-Mail-Überwachung."_s, u"Zeigt diese Hilfe an und beendet sich."_s,
            u"Zeigt die Version an und beendet sich."_s,
            u"Startet im Infobereich, ohne das Fenster zu zeigen."_s,
            u"Dateien Zu importierende Dateien: Kontakte (.vcf, .csv) oder Daten einer "
            "früheren Version (.mdb, .dat)."_s};
    }
    void a_ajuda_diz_em_cada_lingua_o_que_tem_a_dizer()
    {
        QFETCH(QStringList, frases);
        const QString ajuda = Linha({u"--help"_s}, QString::fromLatin1(QTest::currentDataTag())).text();
        QCOMPARE(ajuda.section(u'\n', 1, 1), frases[0]);
        // A no-break space stays one, whatever the lines are broken at.
        QString seguida = ajuda;
        seguida.replace(QRegularExpression(u"[ \n]+"_s), u" "_s);
        QStringList ditas{u"-h, --help "_s + frases[1], u"-v, --version "_s + frases[2],
                          u"--minimized "_s + frases[3], frases[4],
                          u'[' + frases[4].section(u' ', 0, 0) + u"...]"_s};
        for (const QString &dita : ditas)
            QVERIFY2(seguida.contains(dita), qPrintable(dita + u"\n"_s + ajuda));
    }

    void cada_lingua_recusa_pelas_suas_palavras_data()
    {
        QTest::addColumn<QStringList>("frases"); // an option, a kind, a file that is not there, where help is
        QTest::newRow("PortuguesPT") << QStringList{
            u"Opção desconhecida: nada"_s, u"Não é possível abrir ficheiros deste tipo: a.doc"_s,
            u"O ficheiro não existe: /falta.mdb"_s, u"As opções são mostradas por: morvex --help"_s};
        QTest::newRow("PortuguesBR") << QStringList{
            u"Opção desconhecida: nada"_s, u"Não é possível abrir arquivos deste tipo: a.doc"_s,
            u"O arquivo não existe: /falta.mdb"_s, u"As opções são mostradas por: morvex --help"_s};
        QTest::newRow("InglesUK") << QStringList{
            u"Unknown option: nada"_s, u"Files of this kind cannot be opened: a.doc"_s,
            u"The file does not exist: /falta.mdb"_s, u"The options are shown by: morvex --help"_s};
        QTest::newRow("EspanholES") << QStringList{
            u"Opción desconocida: nada"_s, u"No se pueden abrir archivos de este tipo: a.doc"_s,
            u"El archivo no existe: /falta.mdb"_s, u"Las opciones se muestran con: morvex --help"_s};
        QTest::newRow("ItalianoIT") << QStringList{
            u"Opzione sconosciuta: nada"_s, u"Non è possibile aprire file di questo tipo: a.doc"_s,
            u"Il file non esiste: /falta.mdb"_s, u"Le opzioni sono mostrate da: morvex --help"_s};
        QTest::newRow("FrancesFR") << QStringList{
            u"Option inconnue\u00a0: nada"_s,
            u"Il est impossible d’ouvrir les fichiers de ce type\u00a0: a.doc"_s,
            u"Le fichier n’existe pas\u00a0: /falta.mdb"_s,
            u"Les options sont affichées par\u00a0: morvex --help"_s};
        QTest::newRow("AlemaoDE") << QStringList{
            u"Unbekannte Option: nada"_s, u"Dateien dieser Art können nicht geöffnet werden: a.doc"_s,
            u"Die Datei ist nicht vorhanden: /falta.mdb"_s, u"Die Optionen zeigt: morvex --help"_s};
    }
    void cada_lingua_recusa_pelas_suas_palavras()
    {
        QFETCH(QStringList, frases);
        const QString idioma = QString::fromLatin1(QTest::currentDataTag());
        const QStringList recusadas{u"--nada"_s, u"a.doc"_s, u"/falta.mdb"_s};
        for (qsizetype i = 0; i < recusadas.size(); ++i)
            QCOMPARE(Linha({recusadas[i]}, idioma).text(), QDir::toNativeSeparators(frases[i]) + u'\n' + frases[3] + u'\n');
    }

    void uma_opcao_desconhecida_e_recusada_com_o_seu_nome_data()
    {
        QTest::addColumn<QStringList>("palavras");
        QTest::newRow("alone") << QStringList{u"--minimised"_s};
        QTest::newRow("beside help") << QStringList{u"--help"_s, u"--minimised"_s};
        QTest::newRow("in one dash") << QStringList{u"-minimised"_s};
    }
    void uma_opcao_desconhecida_e_recusada_com_o_seu_nome()
    {
        QFETCH(QStringList, palavras);
        const CommandLine linha = Linha(palavras);
        QCOMPARE(linha.kind(), Kind::Refusal);
        QVERIFY(linha.text().startsWith(u"Unknown option: minimised\n"_s));
        QVERIFY(linha.text().contains(u"--help"_s));
    }

    void um_valor_onde_nao_ha_nenhum_e_recusado()
    {
        QCOMPARE(Linha({u"--minimized=sim"_s}).kind(), Kind::Refusal);
    }

    void as_opcoes_do_toolkit_passam()
    {
        const CommandLine linha = Linha({u"-platform"_s, u"offscreen"_s, u"-style"_s, u"fusion"_s,
                                         u"-reverse"_s, u"-session"_s, u"10a_1"_s, u"-name"_s, u"x"_s});
        QCOMPARE(linha.text(), QString());
        QCOMPARE(linha.kind(), Kind::Run);
        QVERIFY(linha.files().isEmpty());
    }

    void cada_opcao_do_toolkit_passa_e_leva_o_seu_valor()
    {
        for (const char *nome : {"reverse", "sync", "nograb", "dograb"}) {
            const CommandLine linha = Linha({u'-' + QLatin1StringView(nome)});
            QVERIFY2(linha.kind() == Kind::Run, nome);
        }
        for (const char *nome : {"platform", "platformpluginpath", "platformtheme", "plugin", "style",
                                 "stylesheet", "session", "display", "geometry", "qwindowgeometry", "title",
                                 "qwindowtitle", "icon", "qwindowicon", "name"}) {
            const CommandLine linha = Linha({u'-' + QLatin1StringView(nome), u"--minimized"_s});
            QVERIFY2(linha.kind() == Kind::Run && !linha.minimized(), nome);
            QVERIFY2(!Linha({u"--help"_s}).text().contains(u"--"_s + QLatin1StringView(nome)), nome);
        }
    }

    void os_ficheiros_vem_na_sua_ordem_com_o_caminho_inteiro()
    {
        const QString a = Ficheiro(u"agenda antiga.mdb"_s), b = Ficheiro(u"Ângela.VCF"_s);
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(pasta_.path()));
        const CommandLine linha =
            Linha({u"./Ângela.VCF"_s, a, u"../"_s + QDir(pasta_.path()).dirName() + u"/Ângela.VCF"_s});
        QVERIFY(QDir::setCurrent(antes));
        QCOMPARE(linha.kind(), Kind::Run);
        QCOMPARE(linha.files(), (QStringList{b, a, b}));
    }

    void depois_de_dois_tracos_um_nome_pode_comecar_por_um()
    {
        Ficheiro(u"--version.vcf"_s);
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(pasta_.path()));
        const CommandLine linha = Linha({u"--"_s, u"--version.vcf"_s});
        QVERIFY(QDir::setCurrent(antes));
        QCOMPARE(linha.files(), QStringList{pasta_.filePath(u"--version.vcf"_s)});
    }

    void uma_terminacao_desconhecida_e_recusada_mesmo_entre_outras()
    {
        const QString bom = Ficheiro(u"a.mdb"_s);
        for (const QString &nome : {u"carta.doc"_s, u"mdb"_s, u"a.mdb.bak"_s}) {
            const QString mau = Ficheiro(nome);
            const CommandLine linha = Linha({bom, mau});
            QCOMPARE(linha.kind(), Kind::Refusal);
            QVERIFY2(linha.text().startsWith(u"Files of this kind cannot be opened: "_s + QDir::toNativeSeparators(mau)),
                     qPrintable(nome));
        }
    }

    void um_ficheiro_que_nao_ha_ou_e_uma_pasta_e_recusado()
    {
        QVERIFY(QDir(pasta_.path()).mkdir(u"pasta.mdb"_s));
        for (const QString &nome : {u"falta.mdb"_s, u"pasta.mdb"_s}) {
            const CommandLine linha = Linha({pasta_.filePath(nome)});
            QCOMPARE(linha.kind(), Kind::Refusal);
            QVERIFY(linha.text().startsWith(u"The file does not exist: "_s + QDir::toNativeSeparators(pasta_.filePath(nome))));
        }
    }
};

MORVEX_TESTE(TestCommandLine)
#include "test_CommandLine.moc"
