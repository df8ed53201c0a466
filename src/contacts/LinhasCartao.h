// The rows of the contact card, in the order in which they take their slots: what each shows, where it goes
// and which commands follow it. Filling, layout and emptying walk this one table, and so do the links.
#pragma once

#include "contacts/DisposicaoCartao.h"

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
    const char *menu = nullptr;
    const char *botao = nullptr;
    const char *direito = nullptr;
    Mostra se = Mostra::SeColuna;
};

struct Linha {
    const char *coluna; // null: the card works out the text
    const char *caixa;
    const char *imagem;                   // null: none
    int afastamento = afastamento_normal; // from the icon's left to the box's, in twips
    Enche enche = Enche::AntesDaData;
    Mostra mostra = Mostra::SeColuna;
    Lado lado = Lado::Seguinte;
    int linhas = 1;            // slots that it takes
    bool ate_ao_fundo = false; // its height lets both columns end near the same line
    Comandos comandos = {};
    short dica = 0; // a link: the text of its tip, before the address
};

constexpr Comandos escrever{"Email", "enviar_email", "RightClickEmail", Mostra::SeTexto};
constexpr Comandos visitar{"Website", "visitar_website", "RightClickWebsite"};
constexpr short texto_enviar_email = 55;
constexpr short texto_visitar = 56;

constexpr std::array linhas{
    Linha{"Telefone1", "txtTelefone1", "imgTelefone1"},
    Linha{"Telefone2", "txtTelefone2", "imgTelefone2"},
    Linha{"Fax", "txtFax", "imgFax"},
    Linha{"Telemovel1", "txtTelemovel1", "imgTelemovel1", afastamento_telemovel},
    Linha{"Telemovel2", "txtTelemovel2", "imgTelemovel2", afastamento_telemovel},
    Linha{"Telemovel3", "txtTelemovel3", "imgTelemovel3", afastamento_telemovel},
    Linha{.coluna = "Email1",
          .caixa = "txtEmail1",
          .imagem = "imgEmail1",
          .enche = Enche::DepoisDaData,
          .comandos = escrever,
          .dica = texto_enviar_email},
    Linha{.coluna = "Email2",
          .caixa = "txtEmail2",
          .imagem = "imgEmail2",
          .enche = Enche::DepoisDaData,
          .comandos = escrever,
          .dica = texto_enviar_email},
    Linha{.coluna = "Website",
          .caixa = "txtWebsite",
          .imagem = "imgWebsite",
          .enche = Enche::DepoisDaData,
          .comandos = visitar,
          .dica = texto_visitar},
    Linha{.coluna = "NomeGrupo", .caixa = "txtGrupo", .imagem = "imgGrupo", .mostra = Mostra::Sempre},
    Linha{.coluna = "Dia", .caixa = "txtAniversario", .imagem = "imgAniversario", .enche = Enche::PeloCartao},
    Linha{.coluna = nullptr,
          .caixa = "txtIdade",
          .imagem = nullptr,
          .enche = Enche::PeloCartao,
          .mostra = Mostra::SeTexto},
    Linha{.coluna = "Morada",
          .caixa = "txtMorada",
          .imagem = "imgMorada",
          .enche = Enche::DepoisDaData,
          .lado = Lado::Direito,
          .linhas = linhas_da_morada},
    Linha{.coluna = "Obs",
          .caixa = "txtObs",
          .imagem = "imgObservacoes",
          .enche = Enche::DepoisDaData,
          .lado = Lado::Direito,
          .ate_ao_fundo = true},
};
} // namespace cartao
