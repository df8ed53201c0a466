// The mail and web rows of the card as links: their look under the pointer, and the click on them. Without a
// mouse a row that the keyboard reaches looks alike, and Enter is its click. What a click opens is not known
// here.
#pragma once

#include <optional>
#include <QObject>
#include <QPalette>
#include <QString>
#include <vector>

class Geral;
class Janela;
class QLineEdit;

class LinhasLink final : public QObject
{
    Q_OBJECT
public:
    LinhasLink(Janela &janela, Geral &geral);

    bool eventFilter(QObject *alvo, QEvent *event) override;

Q_SIGNALS:
    // The left button came up, or Enter went down, on a row that has a text of which nothing is selected: a
    // drag copies and does not open.
    void Clicada(QLineEdit *linha);

private:
    struct Linha {
        QLineEdit *caixa;
        qint16 dica;                              // the text before the address
        std::optional<QPalette::ColorRole> papel; // of the desktop's colours, once the pointer was here
    };

    void Dar_Cor(Linha &linha, QPalette::ColorRole papel);
    void Passar_Sobre(Linha &linha);
    void Sair_Das_Linhas();
    void Chegar_Pelas_Teclas(Linha &linha);
    void Seguir(QLineEdit &linha);

    Geral &geral_;
    std::vector<Linha> linhas_;
    bool LinkActivo = false; // a row has had the look of a link since it was cleared last
};
