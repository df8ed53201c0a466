// The rows of the contact card, in the order in which they take their slots: what each shows, where it goes
// and which commands follow it. Filling, layout and emptying walk this one table, and so do the links.
#pragma once

#include "contacts/DisposicaoCartao.h"
#include "janela/Janela.h"

#include <array>

namespace cartao
{
constexpr int afastamento_normal = 300;
constexpr int afastamento_telemovel = 250;

// A birthday that is no date ends the filling: rows that come behind it keep what they had.
enum class Enche { AntesDaData, DepoisDaData, PeloCartao };

enum class Mostra {
    SeColuna, // unless the column is the empty string; Null is not, and keeps a blank row
    SeTexto,  // with a text in the box
    Sempre
};

enum class Lado { Seguinte, Direito }; // the next slot, or the next one of the right column

// Three ways to one command: main menu, toolbar, right-click menu. They are enabled while a row that has them
// shows, or has a text.
struct Comandos {
    QAction *Ui::Main::*menu = nullptr;
    QAction *Ui::Main::*botao = nullptr;
    QAction *Ui::Main::*direito = nullptr;
    Mostra se = Mostra::SeColuna;
};

// The box of a row, of whatever kind: the member of the window's form that it is.
using Caixa = QWidget *(*)(const Ui::Main &);
template<auto membro> QWidget *caixa(const Ui::Main &janela) { return janela.*membro; }

struct Linha {
    const char *coluna; // null: the card works out the text
    Caixa caixa;
    IconLabel *Ui::Main::*imagem;         // null: none
    int afastamento = afastamento_normal; // from the icon's left to the box's, in twips
    Enche enche = Enche::AntesDaData;
    Mostra mostra = Mostra::SeColuna;
    Lado lado = Lado::Seguinte;
    int linhas = 1;            // slots that it takes
    bool ate_ao_fundo = false; // its height lets both columns end near the same line
    Comandos comandos = {};
    short dica = 0; // a link: the text of its tip, before the address
};

constexpr Comandos escrever{&Ui::Main::Email, &Ui::Main::enviar_email, &Ui::Main::RightClickEmail,
                            Mostra::SeTexto};
constexpr Comandos visitar{&Ui::Main::Website, &Ui::Main::visitar_website, &Ui::Main::RightClickWebsite};
constexpr short texto_enviar_email = 55;
constexpr short texto_visitar = 56;

constexpr std::array linhas{
    Linha{"Telefone1", caixa<&Ui::Main::txtTelefone1>, &Ui::Main::imgTelefone1},
    Linha{"Telefone2", caixa<&Ui::Main::txtTelefone2>, &Ui::Main::imgTelefone2},
    Linha{"Fax", caixa<&Ui::Main::txtFax>, &Ui::Main::imgFax},
    Linha{"Telemovel1", caixa<&Ui::Main::txtTelemovel1>, &Ui::Main::imgTelemovel1, afastamento_telemovel},
    Linha{"Telemovel2", caixa<&Ui::Main::txtTelemovel2>, &Ui::Main::imgTelemovel2, afastamento_telemovel},
    Linha{"Telemovel3", caixa<&Ui::Main::txtTelemovel3>, &Ui::Main::imgTelemovel3, afastamento_telemovel},
    Linha{.coluna = "Email1",
          .caixa = caixa<&Ui::Main::txtEmail1>,
          .imagem = &Ui::Main::imgEmail1,
          .enche = Enche::DepoisDaData,
          .comandos = escrever,
          .dica = texto_enviar_email},
    Linha{.coluna = "Email2",
          .caixa = caixa<&Ui::Main::txtEmail2>,
          .imagem = &Ui::Main::imgEmail2,
          .enche = Enche::DepoisDaData,
          .comandos = escrever,
          .dica = texto_enviar_email},
    Linha{.coluna = "Website",
          .caixa = caixa<&Ui::Main::txtWebsite>,
          .imagem = &Ui::Main::imgWebsite,
          .enche = Enche::DepoisDaData,
          .comandos = visitar,
          .dica = texto_visitar},
    Linha{.coluna = "NomeGrupo",
          .caixa = caixa<&Ui::Main::txtGrupo>,
          .imagem = &Ui::Main::imgGrupo,
          .mostra = Mostra::Sempre},
    Linha{.coluna = "Dia",
          .caixa = caixa<&Ui::Main::txtAniversario>,
          .imagem = &Ui::Main::imgAniversario,
          .enche = Enche::PeloCartao},
    Linha{.coluna = nullptr,
          .caixa = caixa<&Ui::Main::txtIdade>,
          .imagem = nullptr,
          .enche = Enche::PeloCartao,
          .mostra = Mostra::SeTexto},
    Linha{.coluna = "Morada",
          .caixa = caixa<&Ui::Main::txtMorada>,
          .imagem = &Ui::Main::imgMorada,
          .enche = Enche::DepoisDaData,
          .lado = Lado::Direito,
          .linhas = linhas_da_morada},
    Linha{.coluna = "Obs",
          .caixa = caixa<&Ui::Main::txtObs>,
          .imagem = &Ui::Main::imgObservacoes,
          .enche = Enche::DepoisDaData,
          .lado = Lado::Direito,
          .ate_ao_fundo = true},
};
} // namespace cartao
