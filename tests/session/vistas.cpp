// Pictures of every form, for the eye: `vistas FOLDER LANGUAGE light|dark POINTS` makes one PNG a form, over
// an installation with invented people and on the offscreen platform. scripts/vistas runs it for many looks.
#include "controls/Palettes.h"
#include "controls/Scale.h"
#include "data/frmSeleccionarIdioma.h"
#include "data/Relatorio.h"
#include "online/frmPopupEmail.h"
#include "reminders/frmPopup.h"
#include "report/CrystalReport.h"
#include "report/ReportPreview.h"
#include "session/Formularios.h"
#include "session/frmSobre.h"
#include "session/Legendas.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QCalendarWidget>
#include <QMessageBox>
#include <QTabBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace
{
struct Vistas {
    QString pasta;
    ComFormulario c;

    Vistas(const QString &onde, const QString &idioma) : pasta(onde), c(idioma) {}

    void Tirar(QWidget &form, const QString &nome) const
    {
        form.show();
        form.activateWindow();
        QTest::qWait(1);
        Guardar(form, nome);
    }
    void Guardar(QWidget &form, const QString &nome) const
    {
        if (!form.grab().save(pasta + u'/' + nome + u".png"_s)) qFatal("%s", qPrintable(nome));
    }
    void Abrir_E_Tirar(const QString &nome)
    {
        Tirar(*aberturas[nome](c), QString(nome).replace(u", "_s, u"-"_s));
        c.form.reset();
    }

    void Encher();
    void Principal();
    void Editor();
    void Opcoes();
    void Procura();
    void Lembretes();
    void Importar_Cartoes();
    void Exportar_Cartoes();
    void Duplicados();
    void Sincronizar();
    void Caixas();
    void Previsao();
    void Restantes();
};

void Vistas::Encher()
{
    for (const char *nome : {"Abílio Sarmento", "Beatriz Loureiro", "Duarte Figueira", "Graça Penedo"})
        c.s.Novo_Contacto(
            {{u"Nome"_s, Value(QString::fromUtf8(nome))}, {u"Telefone1"_s, Value(u"21 555 01 01"_s)}});
    const QMap<QString, Value> helena{{u"Nome"_s, Value(u"Helen Fairbrook"_s)},
                                      {u"Telefone1"_s, Value(u"21 555 01 90"_s)},
                                      {u"Telefone2"_s, Value(u"21 555 01 91"_s)},
                                      {u"Fax"_s, Value(u"21 555 01 92"_s)},
                                      {u"Telemovel1"_s, Value(u"91 555 01 93"_s)},
                                      {u"Telemovel2"_s, Value(u"91 555 01 94"_s)},
                                      {u"Telemovel3"_s, Value(u"91 555 01 95"_s)},
                                      {u"Email1"_s, Value(u"helen@boats.example"_s)},
                                      {u"Email2"_s, Value(u"fairbrook@boats.example"_s)},
                                      {u"Website"_s, Value(u"www.boats.example"_s)},
                                      {u"Morada"_s, Value(u"14 Mulberry Lane\r\nWestbury"_s)},
                                      {u"Obs"_s, Value(u"Likes tea and boats.\r\nCall after ten o'clock."_s)},
                                      {u"Dia"_s, Value(u"3"_s)},
                                      {u"Mes"_s, Value(u"2"_s)},
                                      {u"Ano"_s, Value(u"1984"_s)},
                                      {u"Fotografia"_s, Value(c.s.Ficheiro(u"faroleiro_sample.jpg"_s))}};
    c.s.Novo_Contacto(helena);
    for (const char *tarefa : {"Telefonar à Helena por causa do orçamento", "Comprar chá, pão e selos"})
        c.s.geral.de.Executar("cmdAdicionarTarefa",
                              {QString::fromUtf8(tarefa), u"03-02-2027"_s, u"10:30"_s, u"0"_s, u"1"_s});
    c.lista.Carregar_Tabela();
    legendas::Atribuir(c.janela, c.s.geral);
}

void Vistas::Principal()
{
    ListBox &nomes = *c.janela.ListaNomes;
    for (int i = 0; i < nomes.ListCount(); ++i)
        if (nomes.List(i).startsWith("Helen"_L1)) nomes.setListIndex(i);
    Tirar(c.janela, u"Main"_s);
    for (QMenu *menu : c.janela.menuBar()->findChildren<QMenu *>(Qt::FindDirectChildrenOnly)) {
        menu->popup(QPoint());
        Tirar(*menu, u"Main-"_s + menu->objectName());
        menu->close();
    }
    c.janela.ComboGrupos->showPopup();
    Tirar(*c.janela.ComboGrupos->view()->window(), u"Main-ComboGrupos"_s);
    c.janela.ComboGrupos->hidePopup();
    const QSize antes = c.janela.size();
    c.janela.resize(c.janela.size().expandedTo(QSize(1000, 700)));
    Tirar(c.janela, u"Main-larga"_s);
    c.janela.resize(antes);
}

void Vistas::Editor()
{
    auto &form = static_cast<frmAddEdit &>(*aberturas[u"frmAddEdit"_s](c));
    Tirar(form, u"frmAddEdit"_s);
    QTest::mouseClick(form.txtAno, Qt::LeftButton);
    Tirar(form, u"frmAddEdit-calendario"_s);
    c.form.reset();
    Por_Modo(c.s.geral.ModoContacto, "Edit");
    auto *editar =
        static_cast<frmAddEdit *>(c.Novo<frmAddEdit>(c.janela, c.s.geral, c.s.plataforma, c.lista));
    editar->Carregar();
    Tirar(*editar, u"frmAddEdit-cheio"_s);
    c.form.reset();
}

void Vistas::Opcoes()
{
    QWidget &form = *aberturas[u"frmOpcoes"_s](c);
    auto *separadores = form.findChild<QTabBar *>(u"tbsOptions"_s);
    for (int i = 0; i < separadores->count(); ++i) {
        separadores->setCurrentIndex(i);
        Tirar(form, u"frmOpcoes-%1"_s.arg(i));
    }
    c.form.reset();
}

void Vistas::Procura()
{
    auto &form = static_cast<frmProcurar &>(*aberturas[u"frmProcurar"_s](c));
    form.txtProcurar->setText(u"a"_s);
    form.cmdProcurar->click();
    Tirar(form, u"frmProcurar"_s);
    c.form.reset();
}

void Vistas::Lembretes()
{
    frmPopup aviso(c.s.geral, c.s.plataforma, c.janela, c.relatorio);
    aviso.lblTarefa->setText(u"Telefonar à Helena por causa do orçamento"_s);
    aviso.lblData->setText(u"03-02-2027"_s);
    aviso.lblHora->setText(u"10:30"_s);
    Tirar(aviso, u"frmPopup"_s);
    frmPopupEmail correio(c.janela, u"helen@boats.example (%1)"_s.arg(c.s.Texto(261)));
    Tirar(correio, u"frmPopupEmail"_s);
    auto &cartao = static_cast<frmTarefas &>(*aberturas[u"frmTarefas"_s](c));
    cartao.Mostrar_Tarefa(u"Telefonar à Helena por causa do orçamento"_s);
    cartao.lblData->setText(u"03-02-2027"_s);
    cartao.lblHora->setText(u"10:30"_s);
    cartao.lblRepeticao->setText(u"Semanalmente"_s);
    Tirar(cartao, u"frmTarefas"_s);
    c.form.reset();
    auto &nota = static_cast<frmMemo &>(*aberturas[u"frmMemo"_s](c));
    nota.Criar(u"Compras"_s, QPoint());
    nota.txtMemo->setPlainText(u"Chá, pão e selos.\nFlores para a Beatriz!"_s);
    Tirar(nota, u"frmMemo"_s);
    nota.txtMemo->setPlainText(u"Chá\nPão\nSelos\nFlores\nVelas\nUm livro para a Beatriz, que faz anos"_s);
    nota.cmdPorGuardar->show();
    Tirar(nota, u"frmMemo-por-guardar"_s);
    c.form.reset();
}

void Vistas::Importar_Cartoes()
{
    Tirar(*c.Novo<frmImportarContactos>(c.s.geral, c.s.plataforma), u"frmImportarContactos-vazio"_s);
    auto &form = static_cast<frmImportarContactos &>(*aberturas[u"frmImportarContactos"_s](c));
    for (int i = 0; i < form.Lista->model()->rowCount(); ++i) {
        form.Lista->setCurrentIndex(form.Lista->model()->index(i, 0));
        Tirar(form, u"frmImportarContactos-%1"_s.arg(i));
    }
    form.cmdImportar->click();
    Tirar(form, u"frmImportarContactos-relatorio"_s);
    form.cmdAnular->click();
    c.form.reset();
}

void Vistas::Exportar_Cartoes()
{
    auto &form = static_cast<frmExportarContactos &>(*aberturas[u"frmExportarContactos"_s](c));
    form.OptionTodos->click();
    Tirar(form, u"frmExportarContactos"_s);
    c.s.dialogos.textos = {c.s.Ficheiro(u"saida.vcf"_s)};
    form.cmdExportar->click();
    Guardar(form, u"frmExportarContactos-trabalha"_s);
    form.cmdCancelar->click();
    Tirar(form, u"frmExportarContactos-cancelada"_s);
    c.form.reset();
}

void Vistas::Duplicados()
{
    Tirar(*c.Novo<frmDuplicados>(c.s.geral, c.s.plataforma, c.desfazer, &c.janela), u"frmDuplicados-vazio"_s);
    auto &form = static_cast<frmDuplicados &>(*aberturas[u"frmDuplicados"_s](c));
    Tirar(form, u"frmDuplicados"_s);
    while (form.cmdSaltar->isEnabled())
        form.cmdSaltar->click();
    Tirar(form, u"frmDuplicados-fim"_s);
    c.form.reset();
}

void Vistas::Sincronizar()
{
    MemoriaDaSincronizacao memoria(c.s.geral.de, c.s.geral.SessaoActual.IdUtilizador);
    ContaSincronizada conta{u"dav.boats.example"_s,
                            u"helena"_s,
                            {},
                            u"http://dav.boats.example/helena/telefone/"_s,
                            u"Telefone da Helena"_s,
                            2,
                            true,
                            true,
                            30};
    memoria.Guardar(conta);
    EstadoDaConta estado = memoria.Estado();
    ResultadoDaSincronizacao resultado;
    resultado.alterados = 3;
    resultado.adicionados_la = 12;
    resultado.conflitos = 2;
    resultado.recusados = 1;
    estado.UltimaVez = u"2027-02-01T09:00:00"_s;
    estado.Resultado = resultado.Texto();
    memoria.Guardar_Resultado(estado);
    using Que = Ocorrencia::Que;
    const auto quando = u"2027-02-01T09:00:00"_s;
    for (const Ocorrencia &uma : {Ocorrencia{Que::Conflito, 1, u"Helen Fairbrook"_s, u"Telemovel1"_s,
                                             u"91 555 01 93"_s, u"91 555 01 99"_s, quando},
                                  Ocorrencia{Que::Conflito, 2, u"Abílio Sarmento"_s, u"Morada"_s,
                                             u"Rua das Flores, 12, 4.º esquerdo"_s,
                                             u"Travessa do Cais, 3, rés-do-chão direito"_s, quando},
                                  Ocorrencia{Que::EliminadoLa, 3, u"Beatriz Loureiro"_s, {}, {}, {}, quando},
                                  Ocorrencia{Que::Recusado, 4, u"Graça Penedo"_s, {}, {}, {}, quando}})
        memoria.Apontar(uma);
    auto &sincronizador = *c.janela.findChild<Sincronizador *>();
    auto &form = static_cast<frmSincronizar &>(*aberturas[u"frmSincronizar"_s](c));
    Tirar(form, u"frmSincronizar-conflitos"_s);
    form.ComboLivro->AddItem(u"Família"_s);
    form.ComboLivro->AddItem(u"Escritório (partilhado por todos os colegas)"_s);
    form.ComboLivro->showPopup();
    Tirar(*form.ComboLivro->view()->window(), u"frmSincronizar-livros"_s);
    form.ComboLivro->hidePopup();
    Q_EMIT sincronizador.Progresso(340, 1000);
    Tirar(form, u"frmSincronizar-progresso"_s);
    for (const auto &[nome, especie] : {std::pair("palavra", RemoteError::Kind::Password),
                                        std::pair("certificado", RemoteError::Kind::Certificate),
                                        std::pair("rede", RemoteError::Kind::NoNetwork)}) {
        ResultadoDaSincronizacao falha;
        falha.fim = ResultadoDaSincronizacao::Fim::Erro;
        falha.erro.kind = especie;
        Q_EMIT sincronizador.Acabou(falha);
        Tirar(form, u"frmSincronizar-"_s + QLatin1StringView(nome));
    }
    c.form.reset();
    memoria.Esquecer();
    frmPopupSincronizacao cartao(c.janela, c.s.Texto(551) + u'\n' + c.s.Texto(537));
    Tirar(cartao, u"frmPopupSincronizacao"_s);
}

void Vistas::Caixas()
{
    DesktopMessageBoxes caixas;
    const auto tirar = [this](const QString &nome) {
        accoes::Quando_Abrir<QMessageBox>([this, nome](QMessageBox &caixa) {
            Tirar(caixa, nome);
            caixa.reject();
        });
    };
    tirar(u"caixa-pergunta"_s);
    caixas.show(c.s.Texto(192), box::question | box::yesNo, u"Morvex"_s, &c.janela);
    tirar(u"caixa-comprida"_s);
    caixas.show(QString(u"Grupo criado: Fornecedores de barcos e de chá. "_s).repeated(8), box::information,
                u"Morvex"_s, &c.janela);
    tirar(u"caixa-erro"_s);
    caixas.showError(Failure(Failure::FileNotFound, u"report"_s, u"no such file: lista.rpt"_s));
    QToolTip::showText(QPoint(10, 10), u"Eliminar contacto"_s, &c.janela);
    for (QWidget *dica : QApplication::topLevelWidgets())
        if (dica->inherits("QTipLabel") && dica->isVisible())
            Guardar(*dica, u"dica"_s); // no focus: it would go
    QToolTip::hideText();
}

void Vistas::Previsao()
{
    const QDir enviados(qEnvironmentVariable("MORVEX_ENVIADOS"));
    for (const QString &definicao : enviados.entryList({u"*.rpt"_s}))
        QFile::copy(enviados.filePath(definicao), c.s.Ficheiro(definicao));
    CrystalReport controlo{c.s.caixas, c.s.dialogos, c.s.relogio, [this] { return c.s.geral.IdiomaActual; }};
    frmImprimir form(c.s.geral, controlo, *c.janela.ListaNomes);
    form.opcoes->OptionLista->click();
    form.CheckBoxPrevisualizar->setChecked(true);
    form.cmdImprimir->click();
    controlo.preview()->showNormal();
    controlo.preview()->resize(1000, 800);
    Tirar(*controlo.preview(), u"previsao"_s);
    delete controlo.preview();
}

void Vistas::Restantes()
{
    for (const QString &nome : aberturas.keys())
        if (!QFile::exists(pasta + u'/' + QString(nome).replace(u", "_s, u"-"_s) + u".png"_s) &&
            nome != "frmOpcoes"_L1)
            Abrir_E_Tirar(nome);
    Tirar(*c.Novo<frmSobre>(c.s.geral, nullptr), u"frmSobre"_s);
    Tirar(*c.Novo<frmSeleccionarIdioma>(c.s.geral, c.s.plataforma), u"frmSeleccionarIdioma"_s);
    c.form.reset();
}

int Letras(const QString &pontos)
{
    QFont fonte;
    fonte.setPointSizeF(pontos.toDouble());
    return scale::lettersFor(fonte, QGuiApplication::primaryScreen()->logicalDotsPerInchY());
}
} // namespace

int main(int argc, char **argv)
{
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    const QStringList pedido = QCoreApplication::arguments();
    if (pedido.size() != 5 || !QDir().mkpath(pedido[1])) qFatal("vistas FOLDER LANGUAGE light|dark POINTS");
    application.setDark(pedido[3] == "dark"_L1);
    scale::setLetters(Letras(pedido[4]));
    Vistas vistas(pedido[1], pedido[2]);
    vistas.Encher();
    vistas.Principal();
    vistas.Editor();
    vistas.Opcoes();
    vistas.Procura();
    vistas.Lembretes();
    vistas.Duplicados();
    vistas.Importar_Cartoes();
    vistas.Exportar_Cartoes();
    vistas.Sincronizar();
    vistas.Caixas();
    vistas.Previsao();
    vistas.Restantes();
    return 0;
}
