// The mail and web rows of the card as links: their look under the pointer, and the click on them. Without a
// mouse a row that the keyboard reaches looks alike, and Enter is its click. What a click opens is not known
// here.
#pragma once

#include <array>
#include <QObject>
#include <QString>

class Geral;
class QLineEdit;
class QWidget;

class LinhasLink final : public QObject
{
    Q_OBJECT
public:
    // The window must hold txtEmail1, txtEmail2, txtWebsite and ListaNomes; it owns them.
    LinhasLink(QWidget &janela, Geral &geral);

    bool eventFilter(QObject *alvo, QEvent *event) override;

Q_SIGNALS:
    // The left button came up, or Enter went down, on a row that has a text of which nothing is selected: a
    // drag copies and does not open.
    void Clicada(QLineEdit *linha);

private:
    void Passar_Sobre(QLineEdit &linha);
    void Sair_Das_Linhas();
    void Chegar_Pelas_Teclas(QLineEdit &linha);
    void Seguir(QLineEdit &linha);
    QString Dica(const QLineEdit &linha);

    Geral &geral_;
    QLineEdit &txtWebsite;
    std::array<QLineEdit *, 3> linhas_;
    QString LinkActivo = QStringLiteral("1"); // "0" over a row, "1" once the look has been cleared
};
