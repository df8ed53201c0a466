#include "contacts/frmAddEdit.h"

#include "contacts/CamposDeData.h"
#include "contacts/DataAniversario.h"
#include "contacts/FotografiaNoEditor.h"
#include "contacts/Preencher_Grupos.h"
#include "controls/Scale.h"
#include "controls/WholeCharacters.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "data/Idiomas.h"
#include "data/Rascunho.h"
#include "data/Traduzir.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <algorithm>
#include <QAccessible>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations mes_anterior{u"Mês anterior",    u"Mês anterior",    u"Previous month",
                                    u"Mes anterior",    u"Mese precedente", u"Mois précédent",
                                    u"Vorheriger Monat"};
constexpr Translations mes_seguinte{u"Mês seguinte",    u"Próximo mês",  u"Next month",    u"Mes siguiente",
                                    u"Mese successivo", u"Mois suivant", u"Nächster Monat"};
} // namespace

frmAddEdit::frmAddEdit(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista)
    : QDialog(&janela),
      geral_(geral),
      platform_(platform),
      janela_(janela),
      lugar_(janela, geral, lista),
      nova_(geral.de, "TblLista", disputa_do_contacto::Forma().colunas),
      linha_(geral.de, disputa_do_contacto::Forma())
{
    setupUi(this);
    scale::apply(*this);
    setFixedSize(size());
    datas_ = new CamposDeData(*this, {*txtDia, *txtMes, *txtAno, *Calendario}, platform_.clock);
    foto_ = new FotografiaNoEditor(*this, {*txtFotografia, *Thumb, *cmd_foto}, geral_, platform_);
    for (QWidget *campo : findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        campo->installEventFilter(this);
    for (QLineEdit *campo : findChildren<QLineEdit *>())
        keepWholeCharacters(*campo);
    connect(ComboGrupos, &ComboBox::Click, this, &frmAddEdit::ComboGrupos_Click);
    connect(foto_, &FotografiaNoEditor::Escolhida, this, &frmAddEdit::Fotografia_Escolhida);
    connect(cmdOk, &QPushButton::clicked, this, &frmAddEdit::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmAddEdit::cmdCancelar_Click);
    connect(this, &QDialog::finished, this, &frmAddEdit::Form_Unload);

    auto *rascunho = new Rascunho(*this, geral_, platform_, [this] { return Registo(); });
    connect(rascunho, &Rascunho::Retomado, foto_, &FotografiaNoEditor::Retomar);
}

// Which contact a draft belongs to.
QString frmAddEdit::Registo() const
{
    return geral_.ModoContacto == "Edit"_L1 ? u"contacto %1"_s.arg(geral_.IDContacto) : u"contacto novo"_s;
}

bool frmAddEdit::Carregar()
{
    if (janela_.ComboGrupos->ListCount() == 0) {
        platform_.boxes.show(u"Nehum grupo criado"_s, box::exclamation, windowTitle(), this);
        Q_EMIT Sem_Grupos();
        return false;
    }
    try {
        Form_Load();
    } catch (const Failure &) {
        Form_Unload(); // a form that couldn't load must not leave the alarms silent
        throw;
    }
    return true;
}

void frmAddEdit::Form_Load()
{
    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    Atribuir_Legendas();
    const Idioma *idioma = idiomas::Procurar(geral_.IdiomaActual);
    datas_->Carregar(idioma != nullptr ? QLocale(QString::fromUtf16(idioma->codigo)) : locale());
    Oferecer_Grupos(geral_, *ComboGrupos); // a user who sees no group at all learns so from cmdOk
    foto_->Carregar();
    if (geral_.ModoContacto == "Edit"_L1) Preencher_Campos();
}

void frmAddEdit::Atribuir_Legendas()
{
    using Legenda = std::pair<QLabel *, qint16>;
    for (const auto &[legenda, texto] :
         {Legenda(lblNome, 27), Legenda(lblTelefone1, 28), Legenda(lblTelefone2, 29),
          Legenda(lblTelemovel1, 30), Legenda(lblTelemovel2, 31), Legenda(lblTelemovel3, 32),
          Legenda(lblWebsite, 34), Legenda(lblFotografia, 35), Legenda(lblMorada, 36), Legenda(lblObs, 37),
          Legenda(lblAniversario, 38), Legenda(lblDia, 39), Legenda(lblMes, 40), Legenda(lblAno, 41),
          Legenda(lblGrupo, 42)})
        legenda->setText(geral_.Ler_Idioma(texto));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    foto_->Legendar(lblFotografia->text());
    Dar_Nomes_Ao_Calendario();
}

// The toolkit draws the calendar's parts, and leaves those without letters unnamed.
void frmAddEdit::Dar_Nomes_Ao_Calendario()
{
    Calendario->setAccessibleName(lblAniversario->text());
    const std::pair<const char16_t *, QString> partes[]{
        {u"qt_calendar_calendarview", lblAniversario->text()},
        {u"qt_calendar_prevmonth", Traduzir(mes_anterior, geral_)},
        {u"qt_calendar_nextmonth", Traduzir(mes_seguinte, geral_)},
        {u"qt_calendar_yearedit", lblAno->text()}};
    for (const auto &[parte, nome] : partes)
        if (auto *widget = Calendario->findChild<QWidget *>(QString::fromUtf16(parte)))
            widget->setAccessibleName(nome);
}

void frmAddEdit::Preencher_Campos()
{
    Recordset &rs = geral_.de.Abrir("cmdEditarNome", {QString::number(geral_.IDContacto)});
    using Coluna = std::pair<const char *, QLineEdit *>;
    for (const auto &[coluna, caixa] :
         {Coluna("Nome", txtNome), Coluna("Telefone1", txtTelefone1), Coluna("Telefone2", txtTelefone2),
          Coluna("Fax", txtFax), Coluna("Telemovel1", txtTelemovel1), Coluna("Telemovel2", txtTelemovel2),
          Coluna("Telemovel3", txtTelemovel3), Coluna("Fotografia", txtFotografia),
          Coluna("Website", txtWebsite), Coluna("Email1", txtEmail1), Coluna("Email2", txtEmail2),
          Coluna("Dia", txtDia), Coluna("Mes", txtMes), Coluna("Ano", txtAno)})
        caixa->setText(rs.Fields(coluna).textOrEmpty());
    Morada_.load(*txtMorada, rs.Fields("Morada").textOrEmpty());
    Obs_.load(*txtObs, rs.Fields("Obs").textOrEmpty());
    Escolher_Grupo(rs.Fields("Grupo").text());
    foto_->Comecar();
    linha_.Comecar(QString::number(geral_.IDContacto), rs, disputa_do_contacto::Em_Lista(Valores()));
    rs.Close();
}

// By its name, as a person would choose it: of two groups with one name it is the first.
void frmAddEdit::Escolher_Grupo(const QString &Grupo)
{
    Recordset &rs = geral_.de.Abrir("cmdVerGrupo", {Grupo});
    ComboGrupos->ChooseText(rs.Fields("NomeGrupo").textOrEmpty());
    rs.Close();
}

void frmAddEdit::Avisar(const QString &aviso)
{
    lblAviso->setText(aviso);
    lblAviso->show();
    QAccessibleEvent dito(lblAviso, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&dito);
}

// A contact that was there wants nothing more than Ok.
void frmAddEdit::Fotografia_Escolhida()
{
    if (geral_.ModoContacto != "Edit"_L1) return;
    cmdOk->setDefault(true);
    cmdOk->setFocus();
}

bool frmAddEdit::event(QEvent *evento)
{
    const bool tratado = QDialog::event(evento);
    if (evento->type() == QEvent::WindowActivate && !activado_) Form_Activate();
    return tratado;
}

void frmAddEdit::Form_Activate()
{
    activado_ = true; // coming back from a box or another window leaves the caret where it was
    txtNome->setFocus();
    txtNome->end(false);
}

// The alarm and the dot go on, and the mail cycle begins anew.
void frmAddEdit::Form_Unload()
{
    foto_->Arrumar();
    geral_.temporizadores.Gerir_Temporizadores(u"start"_s);
}

bool frmAddEdit::eventFilter(QObject *alvo, QEvent *evento)
{
    if (evento->type() == QEvent::FocusIn && qobject_cast<QPushButton *>(alvo) == nullptr)
        cmdOk->setDefault(qobject_cast<QPlainTextEdit *>(alvo) == nullptr); // there Enter makes a new line
    return QDialog::eventFilter(alvo, evento);
}

void frmAddEdit::ComboGrupos_Click() { txtIDGrupo->setText(ComboGrupos->ChosenItemData()); }

void frmAddEdit::cmdOk_Click()
{
    if (ComboGrupos->ListCount() == 0) {
        platform_.boxes.show(u"nenhum grupo criado."_s, box::exclamation, windowTitle(), this);
        reject();
        Q_EMIT Sem_Grupos();
        return;
    }
    if (!Aniversario_Valido(txtDia->text(), txtMes->text(), txtAno->text())) return Recusar_Data();
    if (geral_.ModoContacto == "Add"_L1)
        Adicionar();
    else
        Actualizar();
}

void frmAddEdit::Recusar_Data()
{
    platform_.boxes.show(geral_.Ler_Idioma(232), box::stop, windowTitle(), this);
    datas_->Esvaziar();
}

disputa_do_contacto::Valores frmAddEdit::Valores() const
{
    return {txtNome->text(),       txtTelefone1->text(),
            txtTelefone2->text(),  txtFax->text(),
            txtTelemovel1->text(), txtTelemovel2->text(),
            txtTelemovel3->text(), txtDia->text(),
            txtMes->text(),        txtAno->text(),
            txtEmail1->text(),     txtEmail2->text(),
            txtWebsite->text(),    Morada_.stored(*txtMorada),
            Obs_.stored(*txtObs),  txtFotografia->text(),
            txtIDGrupo->text()};
}

// On a server others add names meanwhile: where the new one stands in the list isn't known beforehand, and it
// is shown by its number.
void frmAddEdit::Adicionar()
{
    const bool num_servidor = geral_.de.Num_Servidor();
    const int IndiceNovoContacto =
        num_servidor ? 0 : lugar_.Lugar_Do_Novo(txtNome->text(), txtIDGrupo->text());
    const auto inserir = [this] {
        if (foto_->Por_Guardar())
            geral_.de.Tudo_Ou_Nada([this] { Escrever_Novo(); });
        else
            Escrever_Novo();
    };
    const QString ID = nova_.Gravar(disputa_do_contacto::Em_Lista(Valores()), inserir,
                                    [this](const QString &chegado) { Completar(chegado); });
    foto_->Ficou(txtFotografia->text());
    Fechar_Depois_De([&] {
        if (!ID.isEmpty())
            lugar_.Mostrar(ID.toInt(), txtIDGrupo->text());
        else if (num_servidor)
            lugar_.Mostrar(static_cast<int>(geral_.de.Acrescentado()), txtIDGrupo->text());
        else
            lugar_.Mostrar_Novo(IndiceNovoContacto);
    });
}

void frmAddEdit::Escrever_Novo()
{
    foto_->Guardar(txtFotografia->text());
    std::apply([&](const auto &...valores) { geral_.de.Executar("cmdAdicionarNome", {valores...}); },
               Valores());
}

// What has arrived without its answer takes what was written in the form since.
void frmAddEdit::Completar(const QString &ID)
{
    foto_->Guardar(txtFotografia->text());
    std::apply(
        [&](const auto &...valores) {
            geral_.de.Executar("cmdUpdateNome", {valores..., ID});
        },
        Valores());
}

void frmAddEdit::Actualizar()
{
    const QStringList meus = disputa_do_contacto::Em_Lista(Valores());
    QStringList ficou = meus;
    const auto fim = linha_.Gravar(
        meus, [this](const LinhaEditada::Disputa &disputa) { return Perguntar(disputa); },
        [&](const QStringList &valores) { Escrever(ficou = valores); });
    if (fim == LinhaEditada::Fim::Deixada) return;
    if (fim == LinhaEditada::Fim::Eliminada && linha_.Mudou(meus)) return Oferecer_Como_Novo();
    foto_->Ficou(ficou[disputa_do_contacto::coluna_fotografia]);
    foto_->Abandonar_As_De_Antes();
    Fechar_Depois_De([&] { lugar_.Mostrar_Editado(ficou[disputa_do_contacto::coluna_grupo]); });
}

void frmAddEdit::Escrever(const QStringList &valores)
{
    foto_->Guardar(valores[disputa_do_contacto::coluna_fotografia]);
    std::apply(
        [&](const auto &...valor) {
            geral_.de.Executar("cmdUpdateNome", {valor..., linha_.ID()});
        },
        disputa_do_contacto::Da_Lista(valores));
}

std::optional<EncontroDeLinhas::Lugares> frmAddEdit::Perguntar(const LinhaEditada::Disputa &disputa)
{
    const auto imagem = [this](const QString &Fotografia) { return foto_->Imagem(Fotografia); };
    frmConflito form(geral_, geral_.Ler_Idioma(421), disputa_do_contacto::Campos(disputa, geral_, imagem),
                     this);
    if (form.exec() != Accepted) return {};
    foto_->Vencida(disputa.la[disputa_do_contacto::coluna_fotografia]);
    return form.Deles();
}

// Another desk has deleted the contact, and what was typed here is all that is left of it.
void frmAddEdit::Oferecer_Como_Novo()
{
    const int resposta =
        platform_.boxes.show(geral_.Ler_Idioma(429), box::question | box::yesNo, windowTitle(), this);
    if (resposta != answer::yes || !Tem_Direito(geral_.SessaoActual.Adicionar, geral_, platform_, this))
        return;
    Adicionar();
}

// What is written is written: if the list can't be shown anew the form still closes, or a second Ok would
// write the contact twice.
void frmAddEdit::Fechar_Depois_De(const std::function<void()> &mostrar)
{
    try {
        mostrar();
    } catch (const Failure &) {
        accept();
        throw;
    }
    accept();
}

void frmAddEdit::cmdCancelar_Click() { reject(); }
