// The backup: the order of its steps, what it leaves when it fails, and the copy it makes. Some of its tests
// need a second process, which is this program with an argument.
#include "interchange/frmBackup.h"

#include "data/CartoesGuardados.h"
#include "data/frmSeleccionarIdioma.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/ComoNumServidor.h"
#include "testlib/DiscoPequeno.h"
#include "testlib/FicheiroAberto.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/MorteNoDisco.h"
#include "testlib/OutrosNomes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <QProcess>
#include <QTemporaryDir>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{
// The program over a folder that is there already, with stand-ins for the desktop.
struct Instalacao : AmbienteFalso {
    explicit Instalacao(const QString &pasta) : geral(pasta) { geral.IdiomaActual = u"PortuguesPT"_s; }

    Geral geral;
};

void Comecar(frmBackup &form, const QString &alvo)
{
    form.txtCaminhoBackup->setText(alvo);
    form.cmdIniciar->setEnabled(true);
    form.cmdIniciar->click();
}

// The second process: a backup that dies at the given change to a file. Without one it tells all of them.
int Filho_Que_Morre(const QString &pasta, const QString &alvo, int mudanca)
{
    Instalacao i(pasta);
    frmBackup form(i.geral, i.plataforma);
    form.show();
    i.caixas.Espera_Qualquer(64, form.windowTitle());
    morte_no_disco::Armar(mudanca);
    Comecar(form, alvo);
    morte_no_disco::armada = false;
    std::puts(morte_no_disco::mudancas.c_str());
    return 0;
}

// The second process: the program on a database that another copy uses, adding contacts until its input ends.
// Tells their number.
int Filho_Que_Escreve(const QString &pasta, const QString &base)
{
    Instalacao i(pasta);
    i.geral.CaminhoBD = base;
    int quantos = 0;
    std::atomic<bool> acabou = false;
    std::thread ouvinte([&acabou] {
        while (std::getchar() != EOF) {
        }
        acabou = true;
    });
    while (!acabou) {
        const QString vazio;
        i.geral.de.Executar("cmdAdicionarNome",
                            {u"Vivo %1"_s.arg(++quantos), vazio, vazio, vazio, vazio, vazio, vazio, vazio,
                             vazio, vazio, vazio, vazio, vazio, vazio, vazio, vazio, 1});
        if (quantos == 1) std::puts("escreve"), std::fflush(stdout);
        std::this_thread::sleep_for(std::chrono::milliseconds(5)); // nobody is that fast
    }
    ouvinte.join();
    std::printf("%d\n", quantos);
    return 0;
}

// One that ends with the test.
class Segundo
{
public:
    ~Segundo()
    {
        if (processo.state() == QProcess::NotRunning) return;
        processo.kill();
        processo.waitForFinished();
    }
    QProcess processo;
};

QString Veredicto(const QString &base)
{
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
    ligacao.Open();
    return ligacao.query(u"PRAGMA integrity_check"_s, {}).Row().join(u'|');
}

int Contar(const QString &base, const QString &onde)
{
    Connection ligacao;
    ligacao.setDataSource(base);
    ligacao.Open();
    return ligacao.query(u"SELECT count(*) AS n FROM TblLista WHERE "_s + onde, {}).Fields("n").number();
}
} // namespace

class TestFrmBackup : public QObject
{
    Q_OBJECT

    // A form over an installation whose database is open, as it is on a normal start.
    struct Copia {
        Copia() : form(s.geral, s.plataforma)
        {
            s.geral.de.Abrir("cmdVerConfig").Close();
            form.show();
        }
        QString Trabalho() const { return s.Ficheiro(u"MorvexCopy.mdb"_s); }
        QString Alvo() const { return pasta.filePath(u"Morvex.mdb"_s); }
        QString Pasta_Com_Barra() const { return pasta.path() + u'/'; }
        void Espera_Sucesso() { s.caixas.Espera(s.Texto(255), 64, form.windowTitle()); }
        QString Guardado() { return s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobackup"_s); }
        bool Ligada() { return s.geral.de.Abrir("cmdVerConfig").RecordCount() == 1; }

        QTemporaryDir pasta;
        Sistema s;
        frmBackup form;
    };

    // The values of a bar as they come to be painted.
    struct Pintura : QObject {
        explicit Pintura(QProgressBar &qual) : barra(qual) { barra.installEventFilter(this); }
        bool eventFilter(QObject *, QEvent *evento) override
        {
            if (evento->type() == QEvent::Paint &&
                (valores.isEmpty() || valores.constLast() != barra.value()))
                valores << barra.value();
            return false;
        }
        QProgressBar &barra;
        QList<int> valores;
    };

    static void Tocar(const QString &caminho)
    {
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write("resto");
    }

private Q_SLOTS:
    void a_copia_tem_tudo_e_a_ligacao_volta()
    {
        Copia c;
        c.s.Novo_Contacto({{u"Nome"_s, Value(u"Ângela"_s)}});
        const QString nome = Por_Na_Base(c.s, {20, 20});
        CartoesGuardados(c.s.geral.de).Guardar({u"1"_s, u"u"_s, "BEGIN"});
        c.form.txtCaminhoBackup->setText(c.Pasta_Com_Barra());
        c.form.cmdIniciar->setEnabled(true);
        c.Espera_Sucesso();
        c.form.cmdIniciar->click();

        Connection copia;
        copia.setConnectionString(u"Data Source='%1'"_s.arg(c.Alvo()));
        copia.OpenReadOnly();
        QCOMPARE(copia.query(u"SELECT Nome FROM TblLista WHERE Nome='Ângela'"_s, {}).RecordCount(), 1);
        QCOMPARE(copia.query(u"SELECT * FROM TblIdiomas"_s, {}).RecordCount(),
                 c.s.Linhas(u"SELECT ID FROM TblIdiomas"_s).size());
        Geral outra(c.s.Pasta()); // the program over the copy
        outra.CaminhoBD = c.Alvo();
        QCOMPARE(FotografiasDaBase(outra.de).Ler(nome), Bytes_De_Imagem({20, 20}));
        QCOMPARE(CartoesGuardados(outra.de).Ler(u"1"_s)->cartao, QByteArray("BEGIN"));
        QVERIFY(outra.de.Em_Dia());
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
        QCOMPARE(c.Guardado(), c.Pasta_Com_Barra());
        QVERIFY(c.form.isVisible());
        QVERIFY(!c.form.ProgressBar1->isVisible());
        QCOMPARE(c.form.ProgressBar1->value(), 100);
    }

    void o_alvo_guardado_vem_na_caixa_e_deixa_comecar()
    {
        SO_NUM_FICHEIRO("nobody may write while it is copied");
        Sistema s;
        s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobackup"_s, u"/copias/"_s);
        frmBackup form(s.geral, s.plataforma);
        QCOMPARE(form.txtCaminhoBackup->text(), u"/copias/"_s);
        QVERIFY(form.cmdIniciar->isEnabled());
        QCOMPARE(form.Label1->text(), s.Texto(253));
        QCOMPARE(form.cmdIniciar->text(), s.Texto(229));
        QCOMPARE(form.cmdSair->text(), s.Texto(136));
        QVERIFY(!s.geral.temporizadores.timerTarefas.Enabled());
        form.show();
        form.cmdSair->click();
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled());

        Sistema nova;
        QVERIFY(!frmBackup(nova.geral, nova.plataforma).cmdIniciar->isEnabled());
    }

    void as_legendas_vem_dos_textos_e_a_barra_tem_o_seu_lugar()
    {
        Sistema s(Sistema::Estado::Semeado, u"FrancesFR"_s); // the design has them in Portuguese
        frmBackup form(s.geral, s.plataforma);
        const QString titulo = QString(s.Texto(254)).remove(u'&');
        QCOMPARE(form.windowTitle(), titulo);
        QCOMPARE(form.Label1->text(), s.Texto(253));
        QCOMPARE(form.cmdIniciar->text(), s.Texto(229));
        QCOMPARE(form.cmdSair->text(), s.Texto(136));
        QCOMPARE(form.cmdProcurar->toolTip(), QString(s.Texto(69)).remove(u'&'));
        QCOMPARE(form.cmdProcurar->accessibleName(), form.cmdProcurar->toolTip());
        QCOMPARE(form.ProgressBar1->accessibleName(), titulo);
        form.show();
        QVERIFY(!form.ProgressBar1->isVisible());
        const QSize antes = form.sizeHint();
        form.ProgressBar1->show();
        QCOMPARE(form.sizeHint(), antes);
    }

    void quando_a_copia_esta_feita_a_de_trabalho_ja_nao_esta_la()
    {
        Copia c;
        bool ha = true;
        c.s.caixas.Ao_Mostrar([&] { ha = QFile::exists(c.Trabalho()); });
        c.Espera_Sucesso();
        Comecar(c.form, c.Pasta_Com_Barra());
        QVERIFY(!ha);
    }

    void uma_pasta_sem_barra_no_fim_cola_se_ao_nome()
    {
        Copia c;
        c.form.txtCaminhoBackup->setText(c.pasta.filePath(u"copia"_s));
        c.form.cmdIniciar->setEnabled(true);
        c.Espera_Sucesso();
        c.form.cmdIniciar->click();
        QVERIFY(QFile::exists(c.pasta.filePath(u"copiaMorvex.mdb"_s)));
    }

    void uma_copia_de_trabalho_esquecida_sai_antes_de_tudo_mesmo_sem_alvo()
    {
        Copia c;
        Tocar(c.Trabalho());
        c.form.txtCaminhoBackup->clear();
        c.form.cmdIniciar->setEnabled(true);
        c.s.caixas.Espera(c.s.Texto(253), 16, c.form.windowTitle());
        c.form.cmdIniciar->click();
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
    }

    void cancelar_a_escolha_esvazia_a_caixa_e_deixa_o_botao()
    {
        Copia c;
        c.form.txtCaminhoBackup->setText(u"/copias/"_s);
        c.s.dialogos.textos << std::nullopt;
        c.form.cmdProcurar->click();
        QCOMPARE(c.form.txtCaminhoBackup->text(), QString());
        QVERIFY(c.form.cmdIniciar->isEnabled());
        QVERIFY(
            c.s.dialogos.perguntas.constLast().startsWith(u"folder Choose a directory from the list. @"_s));
        c.s.caixas.Espera(c.s.Texto(253), 16, c.form.windowTitle());
        c.form.cmdIniciar->click();
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void a_pasta_escolhida_leva_uma_barra_no_fim()
    {
        Copia c;
        c.s.dialogos.textos << u"/copias"_s << u"/outras/"_s;
        c.form.cmdProcurar->click();
        QCOMPARE(c.form.txtCaminhoBackup->text(), u"/copias/"_s);
        c.form.cmdProcurar->click();
        QCOMPARE(c.form.txtCaminhoBackup->text(), u"/outras/"_s);
    }

    void uma_pasta_que_falta_falha_e_tudo_volta()
    {
        Copia c;
        const QString alvo = c.pasta.path() + u"/nao/existe/"_s;
        c.form.txtCaminhoBackup->setText(alvo);
        c.form.cmdIniciar->setEnabled(true);
        const QString ficheiro = alvo + u"Morvex.mdb"_s;
        c.s.caixas.Espera(u"error #75 app %1\rThe file could not be written: %1"_s.arg(ficheiro), 0,
                          u"Error"_s);
        c.form.cmdIniciar->click();
        QVERIFY(!c.form.ProgressBar1->isVisible());
        QVERIFY(c.Ligada());
        QVERIFY(!QFile::exists(c.Trabalho()));
        QCOMPARE(c.Guardado(), QString());
        QVERIFY(c.form.isVisible());
    }

    void uma_base_que_ja_nao_se_reabre_nao_deixa_copia_de_trabalho()
    {
        SO_NUM_FICHEIRO("closed while it is copied");
        Copia c;
        QObject antes;
        connect(c.form.ProgressBar1, &QProgressBar::valueChanged, &antes, [&](int valor) {
            if (valor == 50) QFile::remove(c.s.Base()); // the work copy is whole by then
        });
        c.s.caixas.Espera_Qualquer(0, u"Error"_s);
        VERIFICAR_FALHA(Comecar(c.form, c.Pasta_Com_Barra() + u"nao/existe/"_s), Failure::StoreError);
        QVERIFY(!QFile::exists(c.Trabalho()));
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        Sistema s;
        s.Perder_Texto(136);
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled());
        VERIFICAR_FALHA(frmBackup(s.geral, s.plataforma), Failure::InvalidUseOfNull);
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled());
    }

    void o_alvo_anterior_e_substituido_sem_pergunta()
    {
        Copia c;
        Tocar(c.Alvo());
        c.form.txtCaminhoBackup->setText(c.Pasta_Com_Barra());
        c.form.cmdIniciar->setEnabled(true);
        c.Espera_Sucesso();
        c.form.cmdIniciar->click();
        QVERIFY(QFileInfo(c.Alvo()).size() > 4096);
    }

    void se_o_alvo_for_a_propria_base_ela_sobrevive()
    {
        SO_NUM_FICHEIRO("its path");
        Copia c;
        QVERIFY(outros_nomes::Como_Sem_Maiusculas(c.s.Base(), c.s.Ficheiro(u"Morvex.mdb"_s)));
        c.form.txtCaminhoBackup->setText(c.s.Pasta() + u'/');
        c.form.cmdIniciar->setEnabled(true);
        const QString ficheiro = c.s.Ficheiro(u"Morvex.mdb"_s);
        c.s.caixas.Espera(u"error #75 app %1\rSource and target are one file: %1"_s.arg(ficheiro), 0,
                          u"Error"_s);
        c.form.cmdIniciar->click();
        QVERIFY(c.Ligada());
        QCOMPARE(c.s.Linhas(u"SELECT count(*) FROM TblLista"_s), QStringList{u"3"_s});
    }

    void uma_base_estragada_nao_se_copia_e_a_copia_anterior_fica()
    {
        SO_NUM_FICHEIRO("what is in it");
        Copia c;
        Tocar(c.Alvo());
        QFile base(c.s.Base());
        QVERIFY(base.open(QIODevice::ReadWrite));
        base.seek(4096 * 3);
        base.write(QByteArray(4096 * 4, 'x'));
        base.close();
        c.form.txtCaminhoBackup->setText(c.Pasta_Com_Barra());
        c.form.cmdIniciar->setEnabled(true);
        c.form.cmdIniciar->setEnabled(true);
        c.s.caixas.Espera_Qualquer(0, u"Error"_s);
        c.form.cmdIniciar->click();
        QCOMPARE(QFileInfo(c.Alvo()).size(), 5);
        QVERIFY(!QFile::exists(c.Trabalho()));
    }

    // The store copies such a row without a word; only the verdict on the copy tells it.
    void uma_copia_que_nao_passa_o_exame_deixa_a_copia_anterior()
    {
        SO_NUM_FICHEIRO("what is in it");
        Copia c;
        Tocar(c.Alvo());
        c.s.Escrever(u"PRAGMA ignore_check_constraints=ON"_s);
        c.s.Escrever(u"CREATE TABLE Errada (Valor INTEGER CHECK (Valor > 0))"_s);
        c.s.Escrever(u"INSERT INTO Errada (Valor) VALUES (-1)"_s);
        c.s.caixas.Espera(
            u"error #-2147467259 app %1\rThe copy is damaged: CHECK constraint failed in Errada"_s.arg(
                c.Trabalho()),
            0, u"Error"_s);
        Comecar(c.form, c.Pasta_Com_Barra());
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(QFileInfo(c.Alvo()).size(), 5);
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
    }

    void a_barra_mostra_cada_passo_no_ecra()
    {
        SO_NUM_FICHEIRO("copied in one step");
        Copia c;
        QVERIFY(QTest::qWaitForWindowExposed(&c.form));
        Pintura pintura(*c.form.ProgressBar1);
        c.Espera_Sucesso();
        Comecar(c.form, c.Pasta_Com_Barra());
        QCOMPARE(pintura.valores, (QList<int>{10, 50, 90, 100}));
    }

    void o_programa_verdadeiro_pode_ter_a_base_aberta()
    {
        SO_NUM_FICHEIRO("who has it open");
        Copia c;
        QTemporaryDir outra_pasta;
        const QDir enviados(qEnvironmentVariable("MORVEX_ENVIADOS"));
        for (const QString &nome : enviados.entryList({u"*.jpg"_s, u"*.mdb"_s, u"*.txt"_s, u"*.wav"_s}))
            QFile::copy(enviados.filePath(nome), outra_pasta.filePath(nome));
        QFile::copy(c.s.Ficheiro(u"config.ini"_s), outra_pasta.filePath(u"config.ini"_s));
        Segundo segundo;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(u"MORVEX_HOME"_s, outra_pasta.path());
        ambiente.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        segundo.processo.setProcessEnvironment(ambiente);
        segundo.processo.start(enviados.filePath(u"morvex"_s), QStringList());
        QVERIFY(segundo.processo.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(Tem_Aberto(segundo.processo.processId(), c.s.Base()), 30000);

        c.Espera_Sucesso();
        Comecar(c.form, c.Pasta_Com_Barra());
        QCOMPARE(Veredicto(c.Alvo()), u"ok"_s);
        QCOMPARE(Contar(c.Alvo(), u"1=1"_s), Contar(c.s.Base(), u"1=1"_s));
        QVERIFY(c.Ligada());
        QCOMPARE(segundo.processo.state(), QProcess::Running);
    }

    void uma_segunda_copia_do_programa_escreve_e_nada_se_perde()
    {
        Copia c;
        QTemporaryDir outra_pasta;
        Segundo segundo;
        segundo.processo.start(QCoreApplication::applicationFilePath(),
                               {u"--escreve"_s, outra_pasta.path(), c.s.Base()});
        QVERIFY(segundo.processo.waitForReadyRead());
        QCOMPARE(segundo.processo.readLine().trimmed(), "escreve");
        int antes = 0;
        for (int vez = 0; vez < 5; ++vez) {
            c.Espera_Sucesso();
            Comecar(c.form, c.Pasta_Com_Barra());
            QCOMPARE(Veredicto(c.Alvo()), u"ok"_s);
            const int copiados = Contar(c.Alvo(), u"Nome LIKE 'Vivo %'"_s);
            QVERIFY(copiados >= antes); // a copy is of one moment, and moments go on
            QCOMPARE(Contar(c.Alvo(), u"Nome = 'Vivo %1'"_s.arg(copiados)), 1);
            antes = copiados;
        }
        QVERIFY(antes > 0);
        segundo.processo.closeWriteChannel();
        QVERIFY(segundo.processo.waitForFinished());
        QCOMPARE(segundo.processo.exitCode(), 0);
        QCOMPARE(Contar(c.s.Base(), u"Nome LIKE 'Vivo %'"_s), segundo.processo.readAll().trimmed().toInt());
        if (!Sistema::Num_Servidor()) QCOMPARE(Veredicto(c.s.Base()), u"ok"_s);
    }

    // On a server

    void num_servidor_a_ligacao_fica_aberta_e_os_temporizadores_andam()
    {
        Sistema s;
        QTemporaryDir pasta;
        s.Novo_Contacto({{u"Nome"_s, Value(u"Ângela"_s)}});
        const QString nome = Por_Na_Base(s, {20, 20});
        Como_Num_Servidor(s);
        QSignalSpy correio(&s.geral.temporizadores, &Temporizadores::IniciarMail);
        frmBackup form(s.geral, s.plataforma);
        form.show();
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled());
        const auto abertura = s.geral.de.Marca().opening;
        QList<bool> andavam; // while it copies
        connect(form.ProgressBar1, &QProgressBar::valueChanged, &form,
                [&] { andavam << s.geral.temporizadores.timerTarefas.Enabled(); });
        s.caixas.Espera(s.Texto(255), 64, form.windowTitle());
        Comecar(form, pasta.path() + u'/');
        QVERIFY(!andavam.isEmpty() && !andavam.contains(false));
        QCOMPARE(s.geral.de.Marca().opening, abertura);
        QCOMPARE(Veredicto(pasta.filePath(u"Morvex.mdb"_s)), u"ok"_s);
        QCOMPARE(Contar(pasta.filePath(u"Morvex.mdb"_s), u"Nome='Ângela'"_s), 1);
        QVERIFY(!QFile::exists(s.Ficheiro(u"MorvexCopy.mdb"_s)));
        QCOMPARE(s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobackup"_s), pasta.path() + u'/');
        form.cmdSair->click();
        QCOMPARE(correio.size(), 0); // nothing was stopped, so nothing begins anew
        Geral outra(s.Pasta());      // the program over the copy
        outra.CaminhoBD = pasta.filePath(u"Morvex.mdb"_s);
        QCOMPARE(FotografiasDaBase(outra.de).Ler(nome), Bytes_De_Imagem({20, 20}));
        QVERIFY(outra.de.Em_Dia());
    }

    void num_servidor_os_alarmes_tocam_e_ninguem_carrega_enquanto_se_copia()
    {
        Sistema s;
        QTemporaryDir pasta;
        Como_Num_Servidor(s);
        frmBackup form(s.geral, s.plataforma);
        form.show();
        int toques = 0;
        bool escreveu = false;
        QTimer alarme;
        connect(&alarme, &QTimer::timeout, &form, [&] {
            if (form.ProgressBar1->value() >= 100 || !form.ProgressBar1->isVisible()) return;
            ++toques;
            escreveu = skipFailure([&] { s.geral.de.Executar("cmdAdicionarGrupo", {u"Entretanto"_s}); });
        });
        alarme.start(0);
        s.caixas.Espera(s.Texto(255), 64, form.windowTitle());
        Comecar(form, pasta.path() + u'/');
        QVERIFY(toques > 0);
        QVERIFY(escreveu);
        QCOMPARE(Veredicto(pasta.filePath(u"Morvex.mdb"_s)), u"ok"_s);
    }

    void num_servidor_uma_copia_que_falha_diz_se_e_nada_fica()
    {
        Sistema s;
        QTemporaryDir pasta;
        Como_Num_Servidor(s);
        frmBackup form(s.geral, s.plataforma);
        form.show();
        s.caixas.Espera_Qualquer(0, u"Error"_s);
        Comecar(form, pasta.filePath(u"nao/ha/"_s));
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(!form.ProgressBar1->isVisible());
        QVERIFY(!QFile::exists(s.Ficheiro(u"MorvexCopy.mdb"_s)));
        QCOMPARE(s.geral.de.Abrir("cmdVerConfig").RecordCount(), 1);
        QCOMPARE(s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobackup"_s), QString());
    }

    void um_alvo_cheio_guarda_a_copia_anterior()
    {
        const DiscoPequeno disco(60);
        if (!disco.Montado()) QSKIP("this machine lets nobody mount a small disk");
        Copia c;
        Tocar(disco.Ficheiro(u"Morvex.mdb"_s));
        c.s.caixas.Espera_Qualquer(0, u"Error"_s);
        Comecar(c.form, disco.Pasta() + u'/');
        QCOMPARE(QDir(disco.Pasta()).entryList(QDir::Files), QStringList{u"Morvex.mdb"_s});
        QCOMPARE(QFileInfo(disco.Ficheiro(u"Morvex.mdb"_s)).size(), 5);
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
        QCOMPARE(c.Guardado(), QString());
    }

    void um_disco_do_programa_cheio_deixa_a_base_inteira_e_aberta()
    {
        SO_NUM_FICHEIRO("its disk");
        Sistema s;
        const int quilobytes = static_cast<int>(QFileInfo(s.Base()).size() / 1024);
        DiscoPequeno disco(quilobytes + quilobytes / 2);
        if (!disco.Montado()) QSKIP("this machine lets nobody mount a small disk");
        QVERIFY(QFile::copy(s.Base(), disco.Ficheiro(u"morvex.mdb"_s)));
        QTemporaryDir copias;
        {
            Instalacao i(disco.Pasta());
            frmBackup form(i.geral, i.plataforma);
            i.caixas.Espera_Qualquer(0, u"Error"_s);
            Comecar(form, copias.path() + u'/');
            QVERIFY(i.caixas.Todas_Vistas());
            QCOMPARE(i.geral.de.Abrir("cmdVerConfig").RecordCount(), 1);
        }
        QVERIFY(QDir(copias.path()).isEmpty());
        QVERIFY(!QFile::exists(disco.Ficheiro(u"MorvexCopy.mdb"_s)));
        QCOMPARE(Veredicto(disco.Ficheiro(u"morvex.mdb"_s)), u"ok"_s);
        QCOMPARE(Contar(disco.Ficheiro(u"morvex.mdb"_s), u"1=1"_s), Contar(s.Base(), u"1=1"_s));
    }

    void um_alvo_so_de_leitura_falha_e_tudo_volta()
    {
        DiscoPequeno disco(4096);
        if (!disco.Montado()) QSKIP("this machine lets nobody mount a small disk");
        Tocar(disco.Ficheiro(u"Morvex.mdb"_s));
        QVERIFY(disco.Tornar_So_De_Leitura());
        Copia c;
        const QString ficheiro = disco.Ficheiro(u"Morvex.mdb"_s);
        c.s.caixas.Espera(u"error #75 app %1\rThe file could not be written: %1"_s.arg(ficheiro), 0,
                          u"Error"_s);
        Comecar(c.form, disco.Pasta() + u'/');
        QCOMPARE(QFileInfo(ficheiro).size(), 5);
        QVERIFY(!c.form.ProgressBar1->isVisible());
        QVERIFY(!QFile::exists(c.Trabalho()));
        QVERIFY(c.Ligada());
        QCOMPARE(c.Guardado(), QString());
    }

    void na_sessao_da_primeira_corrida_a_copia_faz_se()
    {
        SO_NUM_FICHEIRO("a first run");
        Sistema s(Sistema::Estado::Vazio);
        Main janela(s.geral, s.plataforma);
        accoes::Quando_Abrir<frmSeleccionarIdioma>([](frmSeleccionarIdioma &idioma) {
            accoes::Quando_Abrir<frmOpcoes>([](frmOpcoes &opcoes) { opcoes.cmdOk->click(); });
            idioma.cmdPT->click();
        });
        janela.Carregar();
        QCOMPARE(s.geral.CaminhoBD, s.Base());
        QTemporaryDir copias;
        frmBackup form(s.geral, s.plataforma);
        s.caixas.Espera(s.Texto(255), 64, form.windowTitle());
        Comecar(form, copias.path() + u'/');
        QVERIFY(s.caixas.Todas_Vistas());
        QCOMPARE(Veredicto(copias.filePath(u"Morvex.mdb"_s)), u"ok"_s);
        QCOMPARE(Contar(copias.filePath(u"Morvex.mdb"_s), u"1=1"_s), Contar(s.Base(), u"1=1"_s));
    }

    void um_alvo_que_o_ficheiro_nao_guarda_inteiro_recusa_se_antes_da_copia()
    {
        Copia c;
        const QString pasta = c.s.Pasta() + u'/' + QString(200, u'a') + u'/' + QString(100, u'b') + u'/';
        QVERIFY(QDir().mkpath(pasta));
        c.s.caixas.Espera_Qualquer(16, u"Morvex"_s);
        Comecar(c.form, pasta);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(QDir(pasta).isEmpty());
        QVERIFY(c.Ligada());
        QCOMPARE(c.Guardado(), QString());
    }

    // A letter tells each change that a backup makes to a file.
    void morto_em_qualquer_mudanca_a_base_viva_fica_inteira()
    {
        SO_NUM_FICHEIRO("its changes on the disk");
        if (!morte_no_disco::Possivel()) QSKIP("no process dies at a chosen change here");
        Sistema s;
        s.geral.de.Fechar_Ligacao();
        QTemporaryDir copias;
        const QString alvo = copias.filePath(u"Morvex.mdb"_s);
        const QString trabalho = s.Ficheiro(u"MorvexCopy.mdb"_s);
        const int contactos = Contar(s.Base(), u"1=1"_s);
        const auto filho = [&](int mudanca) {
            QProcess processo;
            processo.start(QCoreApplication::applicationFilePath(),
                           {u"--morre"_s, s.Pasta(), copias.path() + u'/', QString::number(mudanca)});
            return processo.waitForFinished() ? std::pair(processo.exitStatus(), processo.readAll().trimmed())
                                              : std::pair(QProcess::NormalExit, QByteArray());
        };
        const auto [fim, mudancas] = filho(0);
        QCOMPARE(fim, QProcess::NormalExit);
        for (const char letra : {'w', 's', 'r', 'u'}) // it writes, flushes, renames, removes
            QVERIFY2(mudancas.contains(letra), mudancas.constData());
        QCOMPARE(Veredicto(alvo), u"ok"_s);

        int com_trabalho = 0;
        for (int i = 0; i < mudancas.size(); ++i) {
            const auto [como, dito] = filho(i + 1);
            QVERIFY2(como == QProcess::CrashExit, qPrintable(u"change %1 of %2"_s.arg(i + 1).arg(mudancas)));
            com_trabalho += QFile::exists(trabalho) ? 1 : 0;
            QCOMPARE(Veredicto(s.Base()), u"ok"_s);
            QCOMPARE(Contar(s.Base(), u"1=1"_s), contactos);
            QCOMPARE(Veredicto(alvo), u"ok"_s); // the earlier copy or the new one, never half of one
            QCOMPARE(Contar(alvo, u"1=1"_s), contactos);
        }
        qInfo("killed at %s, %d left a work file", mudancas.constData(), com_trabalho);
        QVERIFY(com_trabalho > 0);
        QCOMPARE(filho(0).first, QProcess::NormalExit);
        QVERIFY(!QFile::exists(trabalho)); // what a death left is gone with the next copy
    }

    void o_menu_abre_a_janela_sem_desligar_a_principal()
    {
        Sistema s;
        Main main(s.geral, s.plataforma);
        main.Carregar();
        accoes::Quando_Abrir<frmBackup>([&](frmBackup &form) {
            QVERIFY(main.isEnabled());
            QCOMPARE(form.windowTitle(), s.Texto(254).remove(u'&'));
            form.cmdSair->click();
        });
        main.mnuBackup->trigger();
    }
};

int main(int argc, char **argv)
{
    DiscoPequeno::Preparar();
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    const QStringList argumentos = QCoreApplication::arguments();
    const QString modo = argumentos.value(1);
    if (modo == "--morre"_L1) return Filho_Que_Morre(argumentos[2], argumentos[3], argumentos[4].toInt());
    if (modo == "--escreve"_L1) return Filho_Que_Escreve(argumentos[2], argumentos[3]);
    TestFrmBackup testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_frmBackup.moc"
