#include "contacts/CartaoContacto.h"

#include "contacts/DisposicaoCartao.h"
#include "contacts/Fotografia.h"
#include "contacts/Idade.h"
#include "data/EstadoMessenger.h"
#include "data/Geral.h"
#include "platform/Controls.h"
#include "platform/Failure.h"
#include "platform/IconLabel.h"
#include "platform/ListBox.h"
#include "platform/Platform.h"
#include "platform/Units.h"

#include <limits>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace
{
constexpr int afastamento_normal = 300;
constexpr int afastamento_telemovel = 250;
constexpr qint16 texto_janeiro = 14;
constexpr qint16 texto_anos = 50;
constexpr qint16 texto_erro_no_cartao = 256;

// Null is not the empty string: a Null column keeps its row, an empty one gives it up.
bool Vazio(const Field &campo) { return !campo.isNull() && campo.text().isEmpty(); }

qint16 Id_De_16_Bits(int id)
{
    if (id > std::numeric_limits<qint16>::max())
        throw Failure(Failure::OutOfMemoryOrRange, u"IDContacto"_s, u"%1 does not fit 16 bits"_s.arg(id));
    return static_cast<qint16>(id);
}

void Mostrar(QWidget &caixa, QWidget &imagem, bool visivel)
{
    caixa.setVisible(visivel);
    imagem.setVisible(visivel);
}
} // namespace

CartaoContacto::CartaoContacto(QWidget &janela, Geral &geral, Platform &platform)
    : QObject(&janela),
      geral_(geral),
      platform_(platform),
      janela_(janela),
      ListaNomes(control<ListBox>(janela, u"ListaNomes"_s)),
      txtTelefone1(control<QLineEdit>(janela, u"txtTelefone1"_s)),
      txtTelefone2(control<QLineEdit>(janela, u"txtTelefone2"_s)),
      txtFax(control<QLineEdit>(janela, u"txtFax"_s)),
      txtTelemovel1(control<QLineEdit>(janela, u"txtTelemovel1"_s)),
      txtTelemovel2(control<QLineEdit>(janela, u"txtTelemovel2"_s)),
      txtTelemovel3(control<QLineEdit>(janela, u"txtTelemovel3"_s)),
      txtEmail1(control<QLineEdit>(janela, u"txtEmail1"_s)),
      txtEmail2(control<QLineEdit>(janela, u"txtEmail2"_s)),
      txtWebsite(control<QLineEdit>(janela, u"txtWebsite"_s)),
      txtGrupo(control<QLineEdit>(janela, u"txtGrupo"_s)),
      txtAniversario(control<QLineEdit>(janela, u"txtAniversario"_s)),
      txtIdade(control<QLineEdit>(janela, u"txtIdade"_s)),
      txtMorada(control<QPlainTextEdit>(janela, u"txtMorada"_s)),
      txtObs(control<QPlainTextEdit>(janela, u"txtObs"_s)),
      imgTelefone1(control<IconLabel>(janela, u"imgTelefone1"_s)),
      imgTelefone2(control<IconLabel>(janela, u"imgTelefone2"_s)),
      imgFax(control<IconLabel>(janela, u"imgFax"_s)),
      imgTelemovel1(control<IconLabel>(janela, u"imgTelemovel1"_s)),
      imgTelemovel2(control<IconLabel>(janela, u"imgTelemovel2"_s)),
      imgTelemovel3(control<IconLabel>(janela, u"imgTelemovel3"_s)),
      imgEmail1(control<IconLabel>(janela, u"imgEmail1"_s)),
      imgEmail2(control<IconLabel>(janela, u"imgEmail2"_s)),
      imgWebsite(control<IconLabel>(janela, u"imgWebsite"_s)),
      imgGrupo(control<IconLabel>(janela, u"imgGrupo"_s)),
      imgAniversario(control<IconLabel>(janela, u"imgAniversario"_s)),
      imgMorada(control<IconLabel>(janela, u"imgMorada"_s)),
      imgObservacoes(control<IconLabel>(janela, u"imgObservacoes"_s)),
      Thumb(control<QLabel>(janela, u"Thumb"_s)),
      numeros_{
          {"Telefone2", &txtTelefone2, &imgTelefone2, afastamento_normal},
          {"Fax", &txtFax, &imgFax, afastamento_normal},
          {"Telemovel1", &txtTelemovel1, &imgTelemovel1, afastamento_telemovel},
          {"Telemovel2", &txtTelemovel2, &imgTelemovel2, afastamento_telemovel},
          {"Telemovel3", &txtTelemovel3, &imgTelemovel3, afastamento_telemovel},
      },
      emails_{
          {"Email1", &txtEmail1, &imgEmail1, afastamento_normal},
          {"Email2", &txtEmail2, &imgEmail2, afastamento_normal},
      }
{
    connect(&ListaNomes, &ListBox::Click, this, &CartaoContacto::Mostrar_Card);
}

void CartaoContacto::Mostrar_Card()
{
    try {
        txtIdade.clear();
        geral_.IDContacto = Id_De_16_Bits(ListaNomes.ItemData(ListaNomes.ListIndex()));
        Recordset &rs = geral_.de.Abrir("cmdEditarNome", {QString::number(geral_.IDContacto)});
        Preencher_Campos(rs);
        estado_messenger::Mostrar(janela_, rs.Fields("MSNMessenger").textOrEmpty());
        geral_.temporizadores.TimerStatusOfContact.setEnabled(false);
        geral_.temporizadores.TimerStatusOfContact.setEnabled(true);
    } catch (const Failure &) {
        platform_.boxes.show(geral_.Ler_Idioma(texto_erro_no_cartao), box::stop, &janela_);
        return;
    }

    Recordset &rs = geral_.de.Rs("cmdEditarNome");
    onFailure([&] { Mostrar_Foto(rs.Fields("Fotografia").textOrEmpty()); },
              [&](const Failure &) { Mostrar_Foto_Por_Omissao(); });
    onFailure([&] { Terminar_Card(rs); },
              [&](const Failure &) {
                  Mostrar_Foto_Por_Omissao();
                  Terminar_Card(rs);
              });
}

// In this order: a birthday that is no date leaves the mail and all behind it as they were.
void CartaoContacto::Preencher_Campos(Recordset &rs)
{
    const auto preencher = [&](const std::vector<Linha> &linhas) {
        for (const Linha &linha : linhas)
            linha.caixa->setText(rs.Fields(linha.coluna).textOrEmpty());
    };
    txtGrupo.setText(rs.Fields("NomeGrupo").textOrEmpty());
    txtTelefone1.setText(rs.Fields("Telefone1").textOrEmpty());
    preencher(numeros_);
    Preencher_Aniversario(rs);
    preencher(emails_);
    txtWebsite.setText(rs.Fields("Website").textOrEmpty());
    txtMorada.setPlainText(rs.Fields("Morada").textOrEmpty());
    txtObs.setPlainText(rs.Fields("Obs").textOrEmpty());
}

void CartaoContacto::Preencher_Aniversario(Recordset &rs)
{
    const QString Dia = rs.Fields("Dia").textOrEmpty();
    const QString Mes = rs.Fields("Mes").textOrEmpty();
    const QString Ano = rs.Fields("Ano").textOrEmpty();

    if (const int mes = Mes.toInt(); mes >= 1 && mes <= 12)
        nome_do_mes_ = geral_.Ler_Idioma(static_cast<qint16>(texto_janeiro + mes - 1));
    txtAniversario.setText(Dia.isEmpty() ? QString() : Dia + u' ' + nome_do_mes_);
    if (Ano.isEmpty()) return;

    txtAniversario.setText(Dia + u' ' + nome_do_mes_ + u' ' + Ano);
    const int idade = Calcular_Idade(Dia, Mes, Ano, platform_.clock.today());
    txtIdade.setText(QString::number(idade) + u' ' + geral_.Ler_Idioma(texto_anos));
}

void CartaoContacto::Mostrar_Foto(const QString &Fotografia)
{
    if (Fotografia.isEmpty()) return Mostrar_Foto_Por_Omissao();
    image1_ = Picture(Caminho_Da_Fotografia(geral_, Fotografia));
    const QSizeF natural = QSizeF(image1_.naturalSize()) * twipsPerPixel;
    Mostrar_Fotografia(Thumb, image1_, cartao::Lugar_Da_Foto(cartao::Redimensionar_Foto(natural)));
}

void CartaoContacto::Mostrar_Foto_Por_Omissao()
{
    image1_ = Picture(geral_.Ficheiro(u"semfoto_big.jpg"_s));
    Mostrar_Fotografia(Thumb, image1_, cartao::foto_por_omissao);
}

void CartaoContacto::Terminar_Card(Recordset &rs)
{
    geral_.IndiceContacto = ListaNomes.ListIndex();
    for (const auto &botao : {u"cmdEditar"_s, u"cmdEliminar"_s})
        control<QWidget>(janela_, botao).setEnabled(true);
    Dispor_Linhas(rs);
    rs.Close();
    for (const auto &comando : {u"EliminarContacto"_s, u"EditarContacto"_s, u"Anterior"_s, u"Seguinte"_s,
                                u"eliminar_contacto"_s, u"editar_contacto"_s, u"cima"_s, u"baixo"_s})
        control<QAction>(janela_, comando).setEnabled(true);
    const bool tem_email = !txtEmail1.text().isEmpty() || !txtEmail2.text().isEmpty();
    for (const auto &comando : {u"Email"_s, u"enviar_email"_s, u"RightClickEmail"_s})
        control<QAction>(janela_, comando).setEnabled(tem_email);
}

void CartaoContacto::Dispor_Linhas(Recordset &rs)
{
    Linha_Card = 1;
    Dispor_Telefone1(rs);
    for (const auto *linhas : {&numeros_, &emails_})
        for (const Linha &linha : *linhas)
            Dispor_Linha(linha, Vazio(rs.Fields(linha.coluna)));
    Dispor_Website(rs);
    Dispor_Linha({"NomeGrupo", &txtGrupo, &imgGrupo, afastamento_normal}, false);
    Dispor_Linha({"Dia", &txtAniversario, &imgAniversario, afastamento_normal}, Vazio(rs.Fields("Dia")));
    Dispor_Idade();
    Dispor_Morada(rs);
    Dispor_Obs(rs);
}

// The first telephone never moves: where it stands at design is the first slot.
void CartaoContacto::Dispor_Telefone1(Recordset &rs)
{
    const bool vazio = Vazio(rs.Fields("Telefone1"));
    Mostrar(txtTelefone1, imgTelefone1, !vazio);
    if (!vazio) ++Linha_Card;
}

void CartaoContacto::Dispor_Linha(const Linha &linha, bool vazia)
{
    if (!vazia) Colocar_Com_Imagem(*linha.caixa, *linha.imagem, Linha_Card++, linha.afastamento);
    Mostrar(*linha.caixa, *linha.imagem, !vazia);
}

void CartaoContacto::Dispor_Website(Recordset &rs)
{
    const bool vazio = Vazio(rs.Fields("Website"));
    Dispor_Linha({"Website", &txtWebsite, &imgWebsite, afastamento_normal}, vazio);
    for (const auto &comando : {u"Website"_s, u"visitar_website"_s, u"RightClickWebsite"_s})
        control<QAction>(janela_, comando).setEnabled(!vazio);
}

void CartaoContacto::Dispor_Idade()
{
    const bool vazia = txtIdade.text().isEmpty();
    if (!vazia) Colocar(txtIdade, Linha_Card++);
    txtIdade.setVisible(!vazia);
}

// Always in the right column, four slots long.
void CartaoContacto::Dispor_Morada(Recordset &rs)
{
    const bool vazia = Vazio(rs.Fields("Morada"));
    if (!vazia) {
        const int linha = std::max(Linha_Card, cartao::primeira_linha_direita);
        Colocar_Com_Imagem(txtMorada, imgMorada, linha, afastamento_normal);
        Linha_Card = linha + cartao::linhas_da_morada;
    }
    Mostrar(txtMorada, imgMorada, !vazia);
}

// Always in the right column; their height lets both columns end near the same line.
void CartaoContacto::Dispor_Obs(Recordset &rs)
{
    const bool vazias = Vazio(rs.Fields("Obs"));
    if (!vazias) {
        const int linha = std::max(Linha_Card, cartao::primeira_linha_direita);
        Colocar_Com_Imagem(txtObs, imgObservacoes, linha, afastamento_normal);
        if (const auto altura = cartao::Altura_Obs(Linha_Card))
            txtObs.resize(txtObs.width(), pixels(*altura));
    }
    Mostrar(txtObs, imgObservacoes, !vazias);
}

void CartaoContacto::Colocar(QWidget &caixa, int linha)
{
    caixa.move(pixels(cartao::Posicao_Left(linha).value_or(0)),
               pixels(cartao::Posicao_Top(linha).value_or(0)));
}

void CartaoContacto::Colocar_Com_Imagem(QWidget &caixa, IconLabel &imagem, int linha, int afastamento)
{
    Colocar(caixa, linha);
    imagem.move(pixels(cartao::Posicao_Left(linha).value_or(0) - afastamento), caixa.y());
}

void CartaoContacto::Limpar()
{
    for (QLineEdit *caixa :
         {&txtTelefone1, &txtTelefone2, &txtFax, &txtTelemovel1, &txtTelemovel2, &txtTelemovel3,
          &txtAniversario, &txtIdade, &txtEmail1, &txtEmail2, &txtWebsite, &txtGrupo}) {
        caixa->clear();
        caixa->hide();
    }
    for (QPlainTextEdit *caixa : {&txtMorada, &txtObs}) {
        caixa->clear();
        caixa->hide();
    }
    for (IconLabel *imagem :
         {&imgGrupo, &imgTelefone1, &imgTelefone2, &imgFax, &imgTelemovel1, &imgTelemovel2, &imgTelemovel3,
          &imgAniversario, &imgEmail1, &imgEmail2, &imgWebsite, &imgMorada, &imgObservacoes})
        imagem->hide();
    for (const auto &botao : {u"cmdEditar"_s, u"cmdEliminar"_s})
        control<QWidget>(janela_, botao).setEnabled(false);
    for (const auto &comando : {u"EditarContacto"_s, u"EliminarContacto"_s, u"Email"_s, u"Website"_s,
                                u"Anterior"_s, u"Seguinte"_s, u"editar_contacto"_s, u"eliminar_contacto"_s,
                                u"enviar_email"_s, u"visitar_website"_s, u"cima"_s, u"baixo"_s})
        control<QAction>(janela_, comando).setEnabled(false);
}
