// Shows a contact as a code that a telephone's camera takes into its own book.
#pragma once

#include "ui_frmQR.h"

#include <QDialog>

class Geral;

class frmQR final : public QDialog, public Ui::frmQR
{
    Q_OBJECT
public:
    // Raises Failure for bytes that no code holds.
    frmQR(Geral &geral, const QByteArray &conteudo, const QString &nome, QWidget *dono = nullptr);

private:
    void Desenhar(const QByteArray &conteudo);
};
