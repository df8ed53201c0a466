#include "contacts/CartaoContacto.h"

#include "contacts/Fotografia.h"
#include "contacts/Idade.h"
#include "contacts/LinhasCartao.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <algorithm>
#include <limits>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace
{
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

bool Mostra_Ja(const QWidget &caixa, const QString &texto)
{
    if (const auto *linha = qobject_cast<const QLineEdit *>(&caixa)) return linha->text() == texto;
    return static_cast<const QPlainTextEdit &>(caixa).toPlainText() == texto;
}

void Escrever(QWidget &caixa, const QString &texto)
{
    if (auto *linha = qobject_cast<QLineEdit *>(&caixa))
        linha->setText(texto);
    else
        static_cast<QPlainTextEdit &>(caixa).setPlainText(texto);
}

bool Tem_Texto(const QWidget &caixa)
{
    if (const auto *linha = qobject_cast<const QLineEdit *>(&caixa)) return !linha->text().isEmpty();
    return !static_cast<const QPlainTextEdit &>(caixa).toPlainText().isEmpty();
}
} // namespace

CartaoContacto::CartaoContacto(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela),
      geral_(geral),
      platform_(platform),
      janela_(janela),
      ListaNomes(*janela.ListaNomes),
      txtAniversario(*janela.txtAniversario),
      txtIdade(*janela.txtIdade),
      Thumb(*janela.Thumb)
{
    for (const cartao::Linha &linha : cartao::linhas)
        linhas_.push_back(
            {&linha, linha.caixa(janela), linha.imagem == nullptr ? nullptr : janela.*linha.imagem,
             linha.caixa(janela)->size()});
    connect(&ListaNomes, &ListBox::Click, this, &CartaoContacto::Mostrar_Card);
}

void CartaoContacto::Mostrar_Card()
{
    bool encontrado = false;
    const std::tuple antes(geral_.IDContacto, geral_.IndiceContacto, txtIdade.text());
    try {
        txtIdade.clear();
        Tomar_Contacto();
        Recordset &rs = geral_.de.Abrir("cmdEditarNome", {QString::number(geral_.IDContacto)});
        encontrado = !rs.Eof();
        Preencher_Campos(rs);
        Q_EMIT OutrosEnderecos(rs.Fields("MSNMessenger").textOrEmpty());
        geral_.temporizadores.TimerStatusOfContact.setEnabled(false);
        geral_.temporizadores.TimerStatusOfContact.setEnabled(true);
    } catch (const Failure &falha) {
        if (falha.kind() == Failure::Kind::ServerLost) return Deixar_Como_Estava(antes);
        Permitir_Editar_E_Eliminar(encontrado); // in the editor what the card stumbled over can be mended
        platform_.boxes.show(geral_.Ler_Idioma(texto_erro_no_cartao), box::stop, &janela_);
        return;
    }

    Mostrar_O_Resto(geral_.de.Rs("cmdEditarNome"));
}

// The window says that the server is away. What is done to the contact on the card must go on being done to that
// one; when the server is back the card of the selected row is shown.
void CartaoContacto::Deixar_Como_Estava(const std::tuple<qint16, int, QString> &antes)
{
    QString idade;
    std::tie(geral_.IDContacto, geral_.IndiceContacto, idade) = antes;
    txtIdade.setText(idade);
}

std::optional<QString> CartaoContacto::Reler()
{
    const int linha = ListaNomes.ListIndex();
    if (linha < 0) return {};
    const int id = ListaNomes.ItemData(linha);
    Recordset &rs = geral_.de.Abrir("cmdEditarNome", {QString::number(id)});
    if (rs.Eof()) {
        rs.Close();
        return {};
    }
    const QString Nome = rs.Fields("Nome").textOrEmpty();
    const bool outro = id != geral_.IDContacto; // chosen while the server was away
    const QScopedValueRollback so_mudancas(so_mudancas_, !outro);
    skipFailure([&] { // what the card stumbles over was told when it was chosen
        Tomar_Contacto();
        txtIdade.clear();
        Preencher_Campos(rs);
    });
    skipFailure([&] { Q_EMIT OutrosEnderecos(rs.Fields("MSNMessenger").textOrEmpty()); });
    Mostrar_O_Resto(rs);
    return Nome;
}

QString CartaoContacto::NomeGrupo() const { return janela_.txtGrupo->text(); }

void CartaoContacto::Mostrar_O_Resto(Recordset &rs)
{
    onFailure([&] { Mostrar_Foto(rs.Fields("Fotografia").textOrEmpty()); },
              [&](const Failure &) { Mostrar_Foto_Por_Omissao(); });
    onFailure([&] { Terminar_Card(rs); },
              [&](const Failure &) {
                  Mostrar_Foto_Por_Omissao();
                  Terminar_Card(rs);
              });
}

// Both or neither: what is asked about one of them must not be done to another.
void CartaoContacto::Tomar_Contacto()
{
    const int linha = ListaNomes.ListIndex();
    geral_.IDContacto = Id_De_16_Bits(ListaNomes.ItemData(linha));
    geral_.IndiceContacto = linha;
}

// In this order: a birthday that is no date leaves the mail and all behind it as they were.
void CartaoContacto::Preencher_Campos(Recordset &rs)
{
    const auto preencher = [&](cartao::Enche vez) {
        for (const Linha &linha : linhas_)
            if (linha.desenho->enche == vez) Encher(*linha.caixa, rs.Fields(linha.desenho->coluna).textOrEmpty());
    };
    preencher(cartao::Enche::AntesDaData);
    Preencher_Aniversario(rs);
    preencher(cartao::Enche::DepoisDaData);
}

// A text that stays the same keeps its place and what is selected in it.
void CartaoContacto::Encher(QWidget &caixa, const QString &texto) const
{
    if (!so_mudancas_ || !Mostra_Ja(caixa, texto)) Escrever(caixa, texto);
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
    image1_ = Imagem_Da_Fotografia(geral_, Fotografia);
    por_omissao_ = false;
    Colocar_Foto();
}

void CartaoContacto::Mostrar_Foto_Por_Omissao()
{
    image1_ = Picture(geral_.Ficheiro(u"semfoto_big.jpg"_s));
    por_omissao_ = true;
    Colocar_Foto();
}

// In twips.
QRectF CartaoContacto::Caixa_Da_Foto() const
{
    return cartao::caixa_da_foto.translated(twips(folga_.esquerda), 0)
        .adjusted(0, 0, twips(folga_.direita), twips(folga_.cima));
}

void CartaoContacto::Colocar_Foto()
{
    const QRectF caixa = Caixa_Da_Foto();
    const QSizeF natural = QSizeF(image1_.naturalSize()) * twipsPerPixel;
    Mostrar_Fotografia(Thumb, image1_,
                       por_omissao_
                           ? cartao::Lugar_Da_Foto_Por_Omissao(caixa)
                           : cartao::Lugar_Da_Foto(cartao::Redimensionar_Foto(natural, caixa.size()), caixa));
}

void CartaoContacto::Tomar_Folga(const Folga &folga)
{
    if (folga == folga_) return; // so that a window that comes into view does not unpack its picture again
    folga_ = folga;
    for (const Linha &linha : linhas_)
        if (linha.lugar != 0) Colocar(linha);
    if (!image1_.naturalSize().isEmpty()) Colocar_Foto();
}

void CartaoContacto::Terminar_Card(Recordset &rs)
{
    Permitir_Editar_E_Eliminar(true);
    Dispor_Linhas(rs);
    rs.Close();
    Permitir_Percorrer(true);
}

void CartaoContacto::Permitir_Editar_E_Eliminar(bool permitido)
{
    for (QAbstractButton *botao : {janela_.cmdEditar, janela_.cmdEliminar})
        botao->setEnabled(permitido);
    for (QAction *comando : {janela_.EliminarContacto, janela_.EditarContacto, janela_.eliminar_contacto,
                             janela_.editar_contacto})
        comando->setEnabled(permitido);
}

void CartaoContacto::Permitir_Percorrer(bool permitido)
{
    for (QAction *comando : {janela_.Anterior, janela_.Seguinte, janela_.cima, janela_.baixo})
        comando->setEnabled(permitido);
}

void CartaoContacto::Dispor_Linhas(Recordset &rs)
{
    int Linha_Card = 1;
    for (Linha &linha : linhas_) {
        const bool visivel = Visivel(linha, rs);
        if (visivel) Linha_Card = Colocar(linha, Linha_Card);
        Mostrar(linha, visivel);
    }
    Ligar_Comandos();
}

bool CartaoContacto::Visivel(const Linha &linha, const Recordset &rs)
{
    switch (linha.desenho->mostra) {
    case cartao::Mostra::Sempre:
        return true;
    case cartao::Mostra::SeTexto:
        return Tem_Texto(*linha.caixa);
    case cartao::Mostra::SeColuna:
        break;
    }
    return !Vazio(rs.Fields(linha.desenho->coluna));
}

int CartaoContacto::Colocar(Linha &linha, int Linha_Card)
{
    const cartao::Linha &desenho = *linha.desenho;
    const bool direita = desenho.lado == cartao::Lado::Direito;
    linha.lugar = direita ? std::max(Linha_Card, cartao::primeira_linha_direita) : Linha_Card;
    if (const auto altura = cartao::Altura_Obs(linha.lugar); desenho.ate_ao_fundo && altura)
        linha.tamanho.setHeight(pixels(*altura));
    Colocar(linha);
    return linha.lugar + desenho.linhas;
}

void CartaoContacto::Colocar(const Linha &linha)
{
    const cartao::Linha &desenho = *linha.desenho;
    const bool direita = linha.lugar >= cartao::primeira_linha_direita;
    const int left = cartao::Posicao_Left(linha.lugar).value_or(0);
    const int afastada = direita ? folga_.esquerda : 0;
    linha.caixa->setGeometry(
        {{pixels(left) + afastada, pixels(cartao::Posicao_Top(linha.lugar).value_or(0)) + folga_.cima},
         linha.tamanho +
             QSize(direita ? folga_.direita : folga_.esquerda, desenho.ate_ao_fundo ? folga_.baixo : 0)});
    if (linha.imagem != nullptr)
        linha.imagem->move(pixels(left - desenho.afastamento) + afastada, linha.caixa->y());
}

void CartaoContacto::Mostrar(const Linha &linha, bool visivel)
{
    linha.caixa->setVisible(visivel);
    if (linha.imagem != nullptr) linha.imagem->setVisible(visivel);
}

// Rows with the same commands stand for one another.
void CartaoContacto::Ligar_Comandos()
{
    for (const Linha &linha : linhas_) {
        const cartao::Comandos &comandos = linha.desenho->comandos;
        if (comandos.menu == nullptr) continue;
        const bool ligados = std::any_of(linhas_.begin(), linhas_.end(), [&](const Linha &outra) {
            const bool chama =
                comandos.se == cartao::Mostra::SeTexto ? Tem_Texto(*outra.caixa) : !outra.caixa->isHidden();
            return outra.desenho->comandos.menu == comandos.menu && chama;
        });
        for (const auto comando : {comandos.menu, comandos.botao, comandos.direito})
            (janela_.*comando)->setEnabled(ligados);
    }
}

void CartaoContacto::Limpar()
{
    for (const Linha &linha : linhas_) {
        Escrever(*linha.caixa, QString());
        Mostrar(linha, false);
    }
    Q_EMIT OutrosEnderecos({});
    Permitir_Editar_E_Eliminar(false);
    for (const Linha &linha : linhas_)
        if (const cartao::Comandos &comandos = linha.desenho->comandos; comandos.menu != nullptr)
            for (const auto comando : {comandos.menu, comandos.botao}) // the list has no menu without a row
                (janela_.*comando)->setEnabled(false);
    Permitir_Percorrer(false);
}
