// Two copies of this program and another one, vdirsyncer, on one book: whoever edits what and runs when, all
// are equal in the end, and each edit is either there or was told. MORVEX_EDICOES says how many edits,
// MORVEX_SEMENTE with which seed; few unless told.
#include "sincronizacao/MesaComServidor.h"
#include "sincronizacao/MesDeGente.h"
#include "testlib/Teste.h"

namespace
{
constexpr int poucas = 40;

class LadoDaPasta final : public LadoDosCartoes
{
public:
    explicit LadoDaPasta(PastaSincronizada &pasta) : pasta_(pasta) {}

    QStringList Quem() override { return pasta_.Ficheiros(); }
    void Tirar(const QString &quem) override { pasta_.Tirar(quem); }
    QString Ditos() override { return ditos_ + pasta_.Postos_De_Lado(); }

    // What it copies here it says on its output, by the card's number.
    bool Correr()
    {
        const auto dito = pasta_.Correr();
        if (!dito) return false;
        static const QRegularExpression copiado(u"^Copying \\(\\w+\\) item (\\S+) to"_s,
                                                QRegularExpression::MultilineOption);
        mudou = copiado.match(*dito).hasMatch() || dito->contains(u"Deleting item"_s);
        for (auto um = copiado.globalMatch(*dito); um.hasNext();)
            for (const QString uid = um.next().captured(1); const QString &ficheiro : pasta_.Ficheiros())
                if (pasta_.Ler(ficheiro).contains("UID:" + uid.toUtf8()))
                    ditos_ += QString::fromUtf8(pasta_.Ler(ficheiro));
        return true;
    }

    bool mudou = false;

protected:
    QByteArray Texto(const QString &quem) override { return pasta_.Ler(quem); }
    void Por(const QString &quem, const QByteArray &texto) override { pasta_.Por(quem, texto); }
    QString Nome_Do_Novo(const QString &uid) override { return uid + u".vcf"_s; }

private:
    PastaSincronizada &pasta_;
    QString ditos_;
};

struct Todos {
    explicit Todos(const QString &especie, quint32 semente)
        : livro(std::make_shared<LivroNoServidor>(especie)), outro(*livro)
    {
        std::vector<std::unique_ptr<LadoDeGente>> lados;
        lados.push_back(std::make_unique<LadoDaMesa>(um));
        lados.push_back(std::make_unique<LadoDaMesa>(dois));
        auto pasta = std::make_unique<LadoDaPasta>(outro);
        terceiro = pasta.get();
        lados.push_back(std::unique_ptr<LadoDeGente>(std::move(pasta)));
        gente = std::make_unique<MesDeGente>(std::move(lados), semente);
    }

    // One of the three runs. Whether it moved anything.
    bool Corre(int qual)
    {
        if (qual == 2) {
            if (!terceiro->Correr()) falhas << u"vdirsyncer"_s;
            return terceiro->mudou;
        }
        ResultadoDaSincronizacao fim;
        (qual == 0 ? um : dois).Correr_De_Verdade(&fim);
        if (fim.fim != ResultadoDaSincronizacao::Fim::Feita) falhas << fim.Texto();
        return fim.Mudou_Aqui() || fim.Mudou_La();
    }

    // In turn, until none has anything to do any more.
    bool Sossegar()
    {
        for (int volta = 0; volta < 6; ++volta) {
            const std::array mudaram{Corre(0), Corre(1), Corre(2)};
            if (std::none_of(mudaram.begin(), mudaram.end(), [](bool mudou) { return mudou; })) return true;
        }
        return false;
    }

    std::shared_ptr<LivroNoServidor> livro;
    MesaComServidor um{livro};
    MesaComServidor dois{livro};
    PastaSincronizada outro;
    LadoDaPasta *terceiro = nullptr;
    std::unique_ptr<MesDeGente> gente;
    QStringList falhas;
};
} // namespace

class TestTresClientes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void no_fim_sao_todos_iguais_e_cada_edicao_esta_la_ou_foi_dita_data()
    {
        QTest::addColumn<QString>("especie");
        QTest::addColumn<quint32>("semente");
        const auto semente = static_cast<quint32>(qEnvironmentVariableIntValue("MORVEX_SEMENTE"));
        QTest::newRow("radicale") << u"radicale"_s << semente + 1;
        QTest::newRow("xandikos") << u"xandikos"_s << semente + 2;
    }
    void no_fim_sao_todos_iguais_e_cada_edicao_esta_la_ou_foi_dita()
    {
        QFETCH(QString, especie);
        QFETCH(quint32, semente);
        for (const QString &falta : {LivroNoServidor::Falta(especie), PastaSincronizada::Falta()})
            if (!falta.isEmpty()) QSKIP(qPrintable(falta));
        bool pedidas = false;
        const int edicoes = qEnvironmentVariableIntValue("MORVEX_EDICOES", &pedidas);
        Todos t(especie, semente);
        t.gente->Povoar(15);
        QVERIFY(t.Sossegar());
        int corridas = 0;
        for (int feitas = 0, quantas = 0; feitas < (pedidas ? edicoes : poucas); feitas += quantas) {
            quantas = 1 + t.gente->Dado(6);
            for (int i = 0; i < quantas; ++i)
                t.gente->Alguma_Coisa();
            t.Corre(t.gente->Dado(3));
            ++corridas;
        }
        QVERIFY2(t.Sossegar(), "there is no end of changes");
        QCOMPARE(t.falhas, QStringList{});
        const QStringList faltas = t.gente->Faltas(true);
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        QCOMPARE(t.um.Lidos_La(), t.um.Aqui());
        qInfo("%d runs in between, %lld values alive, %lld and %lld told by the desks, %lld cards put aside",
              corridas, t.gente->Vivos(), t.um.Ocorrencias().size(), t.dois.Ocorrencias().size(),
              t.outro.Postos_De_Lado().count(u"BEGIN:VCARD"_s));
    }
};

MORVEX_TESTE(TestTresClientes)
#include "test_TresClientes.moc"
