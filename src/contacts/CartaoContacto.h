// The contact card: one contact's fields in two columns that close up round empty ones, and the photograph.
// Knows the recordset of cmdEditarNome and its own share of the main window; knows no other form.
#pragma once

#include "platform/Picture.h"

#include <QObject>
#include <vector>

class Field;
class Geral;
class IconLabel;
class ListBox;
class QAction;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;
class Recordset;
struct Platform;

class CartaoContacto final : public QObject
{
    Q_OBJECT
public:
    // The window must hold every control that is named below; it owns them.
    CartaoContacto(QWidget &janela, Geral &geral, Platform &platform);

    // Shows the contact of the list's row: the list's click. What goes wrong before the picture is told in
    // one message and leaves the card as far as it got; a contact that was found can be edited and deleted
    // even so, one that was not found can't.
    void Mostrar_Card();

    // Empties and hides every row and switches off the commands that need a contact. The picture stays.
    void Limpar();

    // The picture for want of one, stretched over the whole photo box. Raises Failure if its file is missing.
    void Mostrar_Foto_Por_Omissao();

    // The picture on the card, at its natural size.
    const Picture &Image1() const { return image1_; }

Q_SIGNALS:
    // The mail rows belong to another contact now, whose presence was this when it was last seen; empty if
    // the card was emptied.
    void OutrosEnderecos(const QString &MSNMessenger);

private:
    // A row whose place depends on the rows before it. Its icon stands to the left of its box.
    struct Linha {
        const char *coluna;
        QLineEdit *caixa;
        IconLabel *imagem;
        int afastamento; // from the icon's left to the box's, in twips
    };

    void Tomar_Contacto();
    void Preencher_Campos(Recordset &rs);
    void Preencher_Aniversario(Recordset &rs);
    void Mostrar_Foto(const QString &Fotografia);
    void Terminar_Card(Recordset &rs);
    void Permitir_Editar_E_Eliminar(bool permitido);

    void Dispor_Linhas(Recordset &rs);
    void Dispor_Telefone1(Recordset &rs);
    void Dispor_Linha(const Linha &linha, bool vazia);
    void Dispor_Website(Recordset &rs);
    void Dispor_Idade();
    void Dispor_Morada(Recordset &rs);
    void Dispor_Obs(Recordset &rs);
    void Colocar(QWidget &caixa, int linha);
    void Colocar_Com_Imagem(QWidget &caixa, IconLabel &imagem, int linha, int afastamento);

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;

    ListBox &ListaNomes;
    QLineEdit &txtTelefone1, &txtTelefone2, &txtFax, &txtTelemovel1, &txtTelemovel2, &txtTelemovel3;
    QLineEdit &txtEmail1, &txtEmail2, &txtWebsite, &txtGrupo, &txtAniversario, &txtIdade;
    QPlainTextEdit &txtMorada, &txtObs;
    IconLabel &imgTelefone1, &imgTelefone2, &imgFax, &imgTelemovel1, &imgTelemovel2, &imgTelemovel3;
    IconLabel &imgEmail1, &imgEmail2, &imgWebsite, &imgGrupo, &imgAniversario, &imgMorada, &imgObservacoes;
    QLabel &Thumb;

    std::vector<Linha> numeros_; // Telefone2 to Telemovel3, in their order
    std::vector<Linha> emails_;
    Picture image1_;
    QString nome_do_mes_; // stays from card to card where a month has no name
    int Linha_Card = 1;
};
