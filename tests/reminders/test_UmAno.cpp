// A year of two hundred tasks, day by day: attentive and careless users, tasks created, changed and deleted,
// the program closed for days, both changes of the hour, the clock set back and put ahead. At each step the
// notice, the alert card and the list show what the almanac says, and after each day the table holds it.
#include "reminders/Alarme.h"
#include "reminders/Almanaque.h"
#include "reminders/ComPopup.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmListaTarefas.h"
#include "testlib/Fuso.h"

#include <random>

using namespace Qt::StringLiterals;
using namespace almanaque;

namespace
{
constexpr int dias_do_ano = 366;
constexpr int quantas_tarefas = 200;
constexpr int utilizadores = 4;

// On these days the program is open.
constexpr Dia bissexto{2028, 2, 29};
constexpr Dia primavera{2028, 3, 26};
constexpr Dia relogio_atrasado{2028, 5, 17};  // by an hour, at noon
constexpr Dia relogio_adiantado{2028, 7, 12}; // by a month, at noon
constexpr Dia outono{2028, 10, 29};
constexpr std::array marcados{bissexto, primavera, relogio_atrasado, relogio_adiantado, outono};

constexpr int uma_e_meia = 90; // the half hour that the spring leaves out and the autumn repeats
constexpr qint64 meio_dia = 12 * hora;

// The program from its start to its end, with one user.
struct Programa {
    Programa(Sistema &s, const QString &IdUtilizador) : geral(s.Pasta())
    {
        geral.CaminhoBD = s.Base();
        geral.IdiomaActual = s.geral.IdiomaActual;
        geral.SessaoActual.IdUtilizador = IdUtilizador;
        alarme = new Alarme(janela, geral, s.plataforma, relatorio);
        // The test alone ticks.
        geral.temporizadores.timerTarefas.setInterval(std::numeric_limits<int>::max());
    }

    Geral geral;
    RelatorioFalso relatorio;
    QWidget janela;
    Alarme *alarme = nullptr;
};

// What happened, so that a year in which nothing did proves nothing.
struct Contas {
    int toques = 0;
    int na_mudanca_da_hora = 0; // of tasks whose half hour is left out or repeated that day
    int confirmadas[6] = {};    // by repetition
    int editadas = 0;
    int recusadas = 0;
    int eliminadas = 0;
    int criadas = 0;
    int por_outra_copia = 0;
    int sem_cartao = 0;
    int lidas_de_novo = 0; // the card shows more than the notice knows
    int aberturas = 0;
    int dias_fechado = 0;
    std::set<int> tocou_a;
};

enum class Acto { Confirmar, Confirmar_Com_Outro_Texto, Fechar, Eliminar, Editar, Cancelar_Edicao, Recusada };

QString Numa_Linha(QString texto) { return texto.replace(u"\r\n"_s, u" "_s); }

class Ano
{
public:
    explicit Ano(unsigned semente);

    void Viver_Um_Dia();
    // Every user answers until there is nothing more to answer.
    void Responder_A_Tudo();

    QStringList Tabela()
    {
        return s_.Linhas(
            u"SELECT ID, Tarefa, Data, Hora, Utilizador, IDRepeticao FROM TblTarefas ORDER BY ID"_s);
    }

    Modelo modelo;
    Contas contas;
    std::set<int> nascidas, acabadas;

private:
    int Ate(int limite) { return static_cast<int>(acaso_() % static_cast<unsigned>(limite)); }
    bool Em_Cem(int vezes) { return Ate(100) < vezes; }

    void Nova(const Tarefa &tarefa);
    Momento Futuro();
    void Abrir(int utilizador);
    void Fechar();
    void Acertar(qint64 instante);
    qint64 Inicio(Dia dia) const;
    std::optional<qint64> Proximo_Instante(Dia dia) const;
    void Viver_Um_Instante();

    void Tique();
    void Responder(Acto acto);
    Acto Um_Acto();
    void No_Cartao(frmTarefas &cartao, int id, Acto acto);
    void No_Formulario(frmAddEditTarefa &edicao, int id, Acto acto);
    void Preencher(frmAddEditTarefa &edicao, const Tarefa &tarefa);
    void Ver_A_Lista();
    void Conferir_Lista(const frmListaTarefas &lista);
    void Outra_Copia_Escreve();

    Temporizadores &Relogios() const { return programa_->geral.temporizadores; }

    struct Aviso {
        int id;
        QStringList texto; // description, date and time
    };

    Sistema s_;
    std::mt19937 acaso_;
    qint64 agora_ = 0;
    std::vector<qint64> extras_; // moments of this day at which nothing is to happen
    std::unique_ptr<Programa> programa_;
    int utilizador_ = 0;
    int atencao_ = 0; // how often in a hundred the user answers
    int dias_por_fechar_ = 0;
    std::optional<Aviso> aviso_;
    qsizetype sons_ = 0;
    int textos_ = 0;
};

Ano::Ano(unsigned semente) : acaso_(semente)
{
    for (int i = 1; i <= utilizadores; ++i)
        QCOMPARE(s_.Novo_Utilizador(u"u%1"_s.arg(i), u"x"_s), i);
    for (int i = 1; i <= utilizadores; ++i) {
        Nova({u"de domingo à noite %1"_s.arg(i), {{2027, 12, 5}, uma_e_meia}, i, 3});
        Nova({u"uma vez na primavera %1"_s.arg(i), {primavera, uma_e_meia}, i, 1});
        Nova({u"uma vez no outono %1"_s.arg(i), {outono, uma_e_meia}, i, 1});
        Nova({u"mensal do dia 31, %1"_s.arg(i), {{2027, 12, 31}, 540 + i}, i, 4});
        Nova({u"anual de 29, %1"_s.arg(i), {bissexto, 600 + i}, i, 5});
    }
    for (int i = static_cast<int>(nascidas.size()); i < quantas_tarefas; ++i) {
        const int repeticao = i < 28 ? 2 : i < 36 ? 3 : i < 66 ? 4 : i < 115 ? 5 : 1;
        const QString forma = i % 7 == 0 ? u"tarefa %1\r\ncom \"duas\" linhas"_s : u"tarefa %1: é 'já'"_s;
        // Some are overdue before the year begins.
        const Dia dia = Mais_Dias({2027, 11, 10}, Ate(repeticao <= 1 ? 380 : 120));
        Nova({forma.arg(i), {dia, i % 5 == 0 ? 540 : Ate(24 * 60)}, 1 + Ate(utilizadores), repeticao});
    }
}

void Ano::Nova(const Tarefa &tarefa)
{
    s_.geral.de.Executar("cmdAdicionarTarefa",
                         {tarefa.texto, Texto(tarefa.momento.dia), Texto_Da_Hora(tarefa.momento.minuto),
                          tarefa.utilizador, tarefa.repeticao});
    const int id = s_.Ultimo_Id(u"TblTarefas"_s);
    modelo.tarefas[id] = tarefa;
    nascidas.insert(id);
}

// A moment that no form refuses.
Momento Ano::Futuro()
{
    const Momento agora = Na_Parede(agora_);
    const Momento futuro{Mais_Dias(agora.dia, Ate(40)), Ate(24 * 60)};
    return futuro > agora ? futuro : Momento{Mais_Dias(futuro.dia, 1), futuro.minuto};
}

void Ano::Abrir(int utilizador)
{
    utilizador_ = utilizador;
    atencao_ = 30 + Ate(65);
    programa_ = std::make_unique<Programa>(s_, QString::number(utilizador));
    ++contas.aberturas;
}

void Ano::Fechar()
{
    programa_.reset();
    aviso_.reset();
    QVERIFY(Aberto<frmPopup>() == nullptr);
}

void Ano::Acertar(qint64 instante)
{
    agora_ = instante;
    s_.relogio.Acertar(QDateTime::fromSecsSinceEpoch(origem_desde_1970 + instante));
    const Momento agora = Na_Parede(instante);
    QCOMPARE(s_.relogio.now().toString(u"dd-MM-yyyy HH:mm"),
             Texto(agora.dia) + u' ' + Texto_Da_Hora(agora.minuto));
}

qint64 Ano::Inicio(Dia dia) const
{
    const qint64 inverno = Dias_Desde_A_Origem(dia) * dia_inteiro;
    return Na_Parede(inverno) == Momento{dia, 0} ? inverno : inverno - hora;
}

// The next moment of the day worth a look: the minute of a task and the second before, whatever comes by
// chance, and around a change of the hour each minute.
std::optional<qint64> Ano::Proximo_Instante(Dia dia) const
{
    std::optional<qint64> proximo;
    const auto ver = [&](qint64 instante) {
        if (instante > agora_ && (!proximo || instante < *proximo) && Na_Parede(instante).dia == dia)
            proximo = instante;
    };
    const qint64 inicio = Inicio(dia);
    for (const auto &[id, tarefa] : modelo.tarefas) {
        if (tarefa.utilizador != utilizador_ || tarefa.momento.dia != dia) continue;
        for (const qint64 desvio : {-hora, qint64{0}, hora}) {
            const qint64 instante = inicio + tarefa.momento.minuto * 60 + desvio;
            if (Na_Parede(instante) != tarefa.momento) continue;
            ver(instante - 1);
            ver(instante);
        }
    }
    for (const qint64 instante : extras_)
        ver(inicio + instante);
    if (dia == primavera || dia == outono)
        for (qint64 minuto = 50; minuto < 190; ++minuto)
            ver(inicio + minuto * 60);
    return proximo;
}

void Ano::Viver_Um_Dia()
{
    const auto marcado = [](Dia dia) {
        return std::find(marcados.begin(), marcados.end(), dia) != marcados.end();
    };
    Dia dia = Na_Parede(agora_).dia;
    if (programa_ && !marcado(dia) && Em_Cem(12)) {
        Fechar();
        dias_por_fechar_ = 1 + Ate(9);
    } else if (!programa_ && (marcado(dia) || dias_por_fechar_ <= 0)) {
        Abrir(1 + Ate(utilizadores));
    }
    if (!programa_) {
        --dias_por_fechar_;
        ++contas.dias_fechado;
        return Acertar(Inicio(Mais_Dias(dia, 1)));
    }

    extras_ = {0, meio_dia, Ate(static_cast<int>(dia_inteiro)), Ate(static_cast<int>(dia_inteiro))};
    qint64 desvio = 0; // that the clock has yet to make
    if (dia == relogio_atrasado) desvio = -hora;
    if (dia == relogio_adiantado) desvio = 31 * dia_inteiro; // July's days: the same day of August
    while (const auto instante = Proximo_Instante(dia)) {
        Acertar(*instante);
        Viver_Um_Instante();
        if (QTest::currentTestFailed()) return;
        if (desvio == 0 || Na_Parede(agora_).minuto < 720) continue;
        Acertar(agora_ + desvio);
        dia = Na_Parede(agora_).dia;
        desvio = 0;
        Viver_Um_Instante();
    }
    Acertar(Inicio(Mais_Dias(dia, 1)));
}

void Ano::Viver_Um_Instante()
{
    if (Em_Cem(aviso_ ? 15 : 2)) Outra_Copia_Escreve();
    Tique();
    for (int respostas = 0; aviso_ && respostas < 40 && Em_Cem(atencao_); ++respostas) {
        if (QTest::currentTestFailed()) return;
        Responder(Um_Acto());
        Tique();
    }
    if (!aviso_ && Em_Cem(6)) Ver_A_Lista();
}

void Ano::Tique()
{
    Disparar(Relogios().timerTarefas);
    const auto *popup = Aberto<frmPopup>();
    const std::set<int> em_cima = modelo.Em_Cima(utilizador_, Na_Parede(agora_));
    if (!em_cima.empty()) {
        QVERIFY2(popup != nullptr, qPrintable(u"%1 does not ring"_s.arg(*em_cima.begin())));
        const int id = popup->txtIDTarefa->text().toInt();
        QVERIFY2(em_cima.contains(id), qPrintable(u"%1 rings"_s.arg(id)));
        const Tarefa &tarefa = modelo.tarefas.at(id);
        QCOMPARE(tarefa.utilizador, utilizador_);
        if (!aviso_) ++sons_;
        if (!aviso_ || aviso_->id != id) ++contas.toques;
        if (tarefa.momento == Momento{primavera, uma_e_meia} || tarefa.momento == Momento{outono, uma_e_meia})
            ++contas.na_mudanca_da_hora;
        contas.tocou_a.insert(utilizador_);
        aviso_ = {id, {tarefa.texto, Texto(tarefa.momento.dia), Texto_Da_Hora(tarefa.momento.minuto)}};
        QVERIFY(!programa_->janela.isEnabled());
    }
    QCOMPARE(popup != nullptr, aviso_.has_value());
    QCOMPARE(s_.som.tocados.size(), sons_);
    QVERIFY(Relogios().timerTarefas.Enabled() && Relogios().timerPonto.Enabled());
    if (aviso_) {
        QVERIFY(popup->isVisible());
        QCOMPARE((QStringList{popup->lblTarefa->text(), popup->lblData->text(), popup->lblHora->text()}),
                 aviso_->texto);
    } else {
        QVERIFY(programa_->janela.isEnabled());
    }
}

Acto Ano::Um_Acto()
{
    const int sorte = Ate(100);
    if (sorte < 72) return Acto::Confirmar;
    if (sorte < 77) return Acto::Confirmar_Com_Outro_Texto;
    if (sorte < 84) return Acto::Fechar;
    if (sorte < 85) return Acto::Eliminar;
    if (sorte < 92) return Acto::Editar;
    return sorte < 96 ? Acto::Cancelar_Edicao : Acto::Recusada;
}

void Ano::Responder(Acto acto)
{
    frmPopup &popup = *Aberto<frmPopup>();
    const int id = aviso_->id;
    const std::array<QWidget *, 4> sitios{&popup, popup.Image1, popup.lblMensagem, popup.lblTarefa};
    QWidget &onde = *sitios.at(static_cast<std::size_t>(Ate(4)));
    if (Em_Cem(70)) Subir(popup); // or else it is on its way yet
    if (modelo.tarefas.contains(id)) {
        Clicar(onde, [&](frmTarefas &cartao) {
            No_Cartao(cartao, id, acto);
            cartao.close(); // whatever was found: nobody else closes it
        });
    } else {
        QTest::mouseClick(&onde, Qt::LeftButton);
        ++contas.sem_cartao;
    }
    if (Em_Cem(5)) Disparar(Relogios().timerTarefas); // on its way down it does not matter
    Descer(popup);
    aviso_.reset();
    QVERIFY(Aberto<frmPopup>() == nullptr);
    QVERIFY(programa_->janela.isEnabled());

    const auto ficou = modelo.tarefas.find(id);
    if (acto == Acto::Confirmar && ficou != modelo.tarefas.end() &&
        ficou->second.momento > Na_Parede(agora_)) {
        Tique();
        QVERIFY2(!aviso_ || aviso_->id != id, "it rings on after its acknowledgement");
    }
}

void Ano::No_Cartao(frmTarefas &cartao, int id, Acto acto)
{
    static const QStringList nomes{
        {}, u"Não"_s, u"Diariamente"_s, u"Semanalmente"_s, u"Mensalmente"_s, u"Anualmente"_s};
    const Tarefa &tarefa = modelo.tarefas.at(id);
    QCOMPARE(cartao.txtIDTarefa->text(), QString::number(id));
    QCOMPARE(cartao.txtTarefa->toPlainText(), QString(tarefa.texto).replace(u"\r\n"_s, u"\n"_s));
    QCOMPARE(cartao.lblData->text(), Texto(tarefa.momento.dia));
    QCOMPARE(cartao.lblHora->text(), Texto_Da_Hora(tarefa.momento.minuto));
    QCOMPARE(cartao.txtIDRepeticao->text(), QString::number(tarefa.repeticao));
    QCOMPARE(cartao.lblRepeticao->text(), nomes.at(tarefa.repeticao));

    if (cartao.lblData->text() != aviso_->texto.at(1)) ++contas.lidas_de_novo;

    QString texto = tarefa.texto;
    switch (acto) {
    case Acto::Confirmar_Com_Outro_Texto:
        texto = u"outro texto %1"_s.arg(++textos_);
        cartao.txtTarefa->setPlainText(texto);
        [[fallthrough]];
    case Acto::Confirmar:
        ++contas.confirmadas[tarefa.repeticao];
        cartao.cmdImprimir->click();
        modelo.Confirmar(id, texto);
        break;
    case Acto::Fechar:
        QTest::keyClick(&cartao, Qt::Key_Escape);
        break;
    case Acto::Eliminar:
        cartao.cmdEliminar->click();
        modelo.tarefas.erase(id);
        ++contas.eliminadas;
        break;
    case Acto::Editar:
    case Acto::Cancelar_Edicao:
    case Acto::Recusada:
        accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
            No_Formulario(edicao, id, acto);
            edicao.close();
        });
        cartao.cmdEditar->click();
        QCOMPARE(cartao.isVisible(), acto != Acto::Editar);
        break;
    }
    if (!modelo.tarefas.contains(id)) acabadas.insert(id);
}

void Ano::No_Formulario(frmAddEditTarefa &edicao, int id, Acto acto)
{
    Tarefa &tarefa = modelo.tarefas.at(id);
    QCOMPARE(edicao.txtIDTarefa->text(), QString::number(id));
    QCOMPARE(edicao.DataTarefa->text(), Texto(tarefa.momento.dia));
    QCOMPARE(edicao.HoraTarefa->text(), Texto_Da_Hora(tarefa.momento.minuto));
    QCOMPARE(edicao.ComboRepeticao->ListIndex(), tarefa.repeticao - 1);
    Tarefa nova = tarefa;
    nova.momento = acto == Acto::Recusada ? Na_Parede(agora_) : Futuro();
    if (Em_Cem(50)) nova.texto = u"texto editado %1"_s.arg(++textos_);
    if (Em_Cem(20)) nova.repeticao = 1 + Ate(5);
    Preencher(edicao, nova);
    if (acto == Acto::Cancelar_Edicao) return edicao.cmdCancelar->click();
    if (acto == Acto::Recusada) {
        s_.caixas.Espera(s_.Texto(170), 16, QApplication::applicationDisplayName());
        edicao.cmdOk->click();
        QVERIFY(edicao.isVisible() && s_.caixas.Todas_Vistas());
        ++contas.recusadas;
        return;
    }
    edicao.cmdOk->click();
    QVERIFY(!edicao.isVisible());
    tarefa = nova;
    ++contas.editadas;
}

void Ano::Preencher(frmAddEditTarefa &edicao, const Tarefa &tarefa)
{
    const auto [dia, minuto] = tarefa.momento;
    if (edicao.txtTarefa->toPlainText() != QString(tarefa.texto).replace(u"\r\n"_s, u"\n"_s))
        edicao.txtTarefa->setPlainText(tarefa.texto);
    edicao.DataTarefa->setDate({dia.ano, dia.mes, dia.dia});
    edicao.HoraTarefa->setTime({minuto / 60, minuto % 60});
    edicao.ComboRepeticao->setListIndex(tarefa.repeticao - 1);
}

// The list of tasks, with at most one thing done in it.
void Ano::Ver_A_Lista()
{
    frmListaTarefas lista(programa_->geral, s_.plataforma, programa_->janela);
    lista.show();
    Conferir_Lista(lista);
    const std::vector<int> ids = modelo.Do_Utilizador(utilizador_);
    const int sorte = Ate(4);
    if (sorte == 0) {
        const Tarefa nova{u"criada %1"_s.arg(++textos_), Futuro(), utilizador_, 1 + Ate(5)};
        accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
            Preencher(edicao, nova);
            edicao.cmdOk->click();
            edicao.close();
        });
        lista.cmdCriar->click();
        const int id = s_.Ultimo_Id(u"TblTarefas"_s);
        QVERIFY2(!nascidas.contains(id), "no new row");
        modelo.tarefas[id] = nova;
        nascidas.insert(id);
        ++contas.criadas;
    } else if (sorte <= 2 && !ids.empty()) {
        const int id = ids.at(static_cast<std::size_t>(Ate(static_cast<int>(ids.size()))));
        lista.ListViewTarefas->setCurrentItem(
            lista.ListViewTarefas->findItems(Numa_Linha(modelo.tarefas.at(id).texto), Qt::MatchExactly)
                .value(0));
        if (sorte == 1) {
            accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
                No_Formulario(edicao, id, Acto::Editar);
                edicao.close();
            });
            lista.cmdEditar->click();
        } else {
            lista.cmdEliminar->click();
            modelo.tarefas.erase(id);
            acabadas.insert(id);
            ++contas.eliminadas;
        }
    }
    Conferir_Lista(lista);
    lista.cmdFechar->click();
    QVERIFY(Relogios().timerTarefas.Enabled());
}

void Ano::Conferir_Lista(const frmListaTarefas &lista)
{
    static const QStringList nomes{
        {}, u"Não"_s, u"Diariamente"_s, u"Semanalmente"_s, u"Mensalmente"_s, u"Anualmente"_s};
    QStringList ha, devia;
    QStringList ordem, ordem_devida; // of two at one moment either may come first
    const QTreeWidget &vista = *lista.ListViewTarefas;
    for (int i = 0; i < vista.topLevelItemCount(); ++i) {
        const QTreeWidgetItem &item = *vista.topLevelItem(i);
        ordem << item.text(1) + u' ' + item.text(2);
        ha << QStringList{ordem.constLast(), item.text(0), item.text(3),
                          item.icon(0).isNull() ? u""_s : u"*"_s}
                  .join(u'|');
    }
    for (const int id : modelo.Do_Utilizador(utilizador_)) {
        const Tarefa &tarefa = modelo.tarefas.at(id);
        const Dia dia = tarefa.momento.dia;
        ordem_devida << Texto(dia) + u' ' + Texto_Da_Hora(tarefa.momento.minuto);
        devia << QStringList{ordem_devida.constLast(), Numa_Linha(tarefa.texto), nomes.at(tarefa.repeticao),
                             dia == Na_Parede(agora_).dia ? u"*"_s : u""_s}
                     .join(u'|');
    }
    QCOMPARE(ordem, ordem_devida);
    ha.sort();
    devia.sort();
    QCOMPARE(ha, devia);
}

// Another copy of the program on the same file deletes a task, or puts it off, under the notice too.
void Ano::Outra_Copia_Escreve()
{
    if (modelo.tarefas.empty()) return;
    auto qual = std::next(modelo.tarefas.begin(), Ate(static_cast<int>(modelo.tarefas.size())));
    if (aviso_ && Em_Cem(70) && modelo.tarefas.contains(aviso_->id)) qual = modelo.tarefas.find(aviso_->id);
    auto &[id, tarefa] = *qual;
    ++contas.por_outra_copia;
    if (Em_Cem(50)) {
        tarefa.momento = Futuro();
        const QStringList linha = tarefa.Linha(id).split(u'|');
        s_.Escrever(u"UPDATE TblTarefas SET Data='%1', Hora='%2' WHERE ID=%3"_s.arg(
            linha.at(linha.size() - 4), linha.at(linha.size() - 3), linha.at(0)));
    } else {
        s_.Escrever(u"DELETE FROM TblTarefas WHERE ID=%1"_s.arg(id));
        acabadas.insert(id);
        modelo.tarefas.erase(qual);
    }
}

void Ano::Responder_A_Tudo()
{
    for (int utilizador = 1; utilizador <= utilizadores; ++utilizador) {
        if (programa_) Fechar();
        Abrir(utilizador);
        const int por_confirmar = modelo.Por_Confirmar(utilizador, Na_Parede(agora_));
        int respostas = 0;
        for (Tique(); aviso_ && !QTest::currentTestFailed(); Tique()) {
            QVERIFY2(++respostas <= por_confirmar, "it rings for ever");
            Responder(Acto::Confirmar);
        }
        QCOMPARE(respostas, por_confirmar);
    }
}
} // namespace

class TestUmAno : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        fuso::Lisboa(); // whose clocks change, whatever the machine's do
    }

    void o_almanaque_conhece_o_calendario()
    {
        QCOMPARE(Texto(Mais_Dias({2028, 2, 28}, 1)), u"29-02-2028"_s);
        QCOMPARE(Texto(Mais_Dias({2028, 12, 31}, 1)), u"01-01-2029"_s);
        QCOMPARE(Texto(*Seguinte(4, {2028, 1, 31})), u"29-02-2028"_s);
        QCOMPARE(Texto(*Seguinte(4, {2028, 12, 31})), u"31-01-2029"_s);
        QCOMPARE(Texto(*Seguinte(5, bissexto)), u"28-02-2029"_s);
        QVERIFY(!Seguinte(1, bissexto));
        QCOMPARE(Mudanca_Da_Hora(2028, 3), Dias_Desde_A_Origem(primavera) * dia_inteiro + hora);
        QCOMPARE(Mudanca_Da_Hora(2028, 10), Dias_Desde_A_Origem(outono) * dia_inteiro + hora);
    }

    void um_ano_de_duzentas_tarefas_e_como_o_almanaque_diz()
    {
        const int semente = qEnvironmentVariableIntValue("MORVEX_SEMENTE");
        Ano ano(semente > 0 ? static_cast<unsigned>(semente) : 1);
        QCOMPARE(ano.nascidas.size(), std::size_t{quantas_tarefas});
        for (int dia = 0; dia < dias_do_ano; ++dia) {
            ano.Viver_Um_Dia();
            if (QTest::currentTestFailed()) return;
            QCOMPARE(ano.Tabela(), ano.modelo.Linhas());
        }
        ano.Responder_A_Tudo();
        if (QTest::currentTestFailed()) return;
        QCOMPARE(ano.Tabela(), ano.modelo.Linhas());
        QCOMPARE(ano.modelo.tarefas.size(), ano.nascidas.size() - ano.acabadas.size());

        const Contas &contas = ano.contas;
        qInfo("%d rings; acknowledged %d once, %d daily, %d weekly, %d monthly, %d yearly; %d edited, %d "
              "refused, "
              "%d deleted, %d created, %d by another copy, %d cards read afresh, %d clicks without a card; "
              "opened %d "
              "times, closed for %d days",
              contas.toques, contas.confirmadas[1], contas.confirmadas[2], contas.confirmadas[3],
              contas.confirmadas[4], contas.confirmadas[5], contas.editadas, contas.recusadas,
              contas.eliminadas, contas.criadas, contas.por_outra_copia, contas.lidas_de_novo,
              contas.sem_cartao, contas.aberturas, contas.dias_fechado);
        QCOMPARE(contas.tocou_a.size(), std::size_t{utilizadores});
        for (int repeticao = 1; repeticao <= 5; ++repeticao)
            QVERIFY2(contas.confirmadas[repeticao] >= 10, qPrintable(QString::number(repeticao)));
        for (const int vezes :
             {contas.na_mudanca_da_hora, contas.editadas, contas.recusadas, contas.eliminadas, contas.criadas,
              contas.por_outra_copia, contas.lidas_de_novo, contas.sem_cartao, contas.aberturas,
              contas.dias_fechado})
            QVERIFY(vezes > 0);
    }
};

MORVEX_TESTE(TestUmAno)
#include "test_UmAno.moc"
