// The contact card: one contact's fields in two columns that close up round empty ones, and the photograph.
// Knows the recordset of cmdEditarNome and its own share of the main window; knows no other form.
#pragma once

#include "platform/Picture.h"

#include <optional>
#include <QObject>
#include <QString>
#include <tuple>
#include <vector>

class Geral;
class IconLabel;
class Janela;
class ListBox;
class QLabel;
class QLineEdit;
class QWidget;
class Recordset;
struct Platform;
namespace cartao
{
struct Linha;
}

class CartaoContacto final : public QObject
{
    Q_OBJECT
public:
    CartaoContacto(Janela &janela, Geral &geral, Platform &platform);

    // Shows the contact of the list's row: the list's click. What goes wrong before the picture is told in
    // one message and leaves the card as far as it got; a contact that was found can be edited and deleted
    // even so, one that was not found can't. A server that is away leaves the card as it was, without a word.
    void Mostrar_Card();

    // The contact of the list's row as it is now, after another desk has changed it. What stays the same keeps
    // its place and what is selected in it. Returns its name; nothing, and nothing is done, where no row is
    // selected or its contact is gone. Raises Failure where it can't be asked for.
    std::optional<QString> Reler();

    QString NomeGrupo() const; // on the card

    // Empties and hides every row and switches off the commands that need a contact. The picture stays.
    void Limpar();

    // The picture for want of one, stretched over the whole photo box. Raises Failure if its file is missing.
    void Mostrar_Foto_Por_Omissao();

    // The room that the window has beyond its design, in pixels: for the left column, for the right one and
    // the picture, for what stands above the columns, and below it for the notes.
    struct Folga {
        int esquerda = 0;
        int direita = 0;
        int cima = 0;
        int baixo = 0;
        bool operator==(const Folga &) const = default;
    };
    // The card takes that room, and lays out anew what it shows.
    void Tomar_Folga(const Folga &folga);

    // The picture on the card, at its natural size.
    const Picture &Image1() const { return image1_; }

Q_SIGNALS:
    // The mail rows belong to another contact now, whose presence was this when it was last seen; empty if
    // the card was emptied.
    void OutrosEnderecos(const QString &MSNMessenger);

private:
    // A row of the table with its controls.
    struct Linha {
        const cartao::Linha *desenho;
        QWidget *caixa;
        IconLabel *imagem; // null: none
        QSize tamanho;     // of the box, without the room beyond the design
        int lugar = 0;     // the slot that it stands in; 0 before it has had one
    };

    void Tomar_Contacto();
    void Deixar_Como_Estava(const std::tuple<qint16, int, QString> &antes);
    void Mostrar_O_Resto(Recordset &rs);
    void Encher(QWidget &caixa, const QString &texto) const;
    void Preencher_Campos(Recordset &rs);
    void Preencher_Aniversario(Recordset &rs);
    void Mostrar_Foto(const QString &Fotografia);
    QRectF Caixa_Da_Foto() const;
    void Colocar_Foto();
    void Terminar_Card(Recordset &rs);
    void Permitir_Editar_E_Eliminar(bool permitido);
    void Permitir_Percorrer(bool permitido);

    void Dispor_Linhas(Recordset &rs);
    void Ligar_Comandos();
    static bool Visivel(const Linha &linha, const Recordset &rs);
    int Colocar(Linha &linha, int Linha_Card); // returns the slot behind it
    void Colocar(const Linha &linha);
    static void Mostrar(const Linha &linha, bool visivel);

    Geral &geral_;
    Platform &platform_;
    Janela &janela_;

    ListBox &ListaNomes;
    QLineEdit &txtAniversario, &txtIdade;
    QLabel &Thumb;

    std::vector<Linha> linhas_;
    Folga folga_;
    Picture image1_;
    bool so_mudancas_ = false; // a text that is there already is not written again
    bool por_omissao_ = false; // image1_ is the picture for want of one
    QString nome_do_mes_;      // stays from card to card where a month has no name
};
