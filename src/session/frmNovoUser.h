// Adds a user. The first one of a system may do everything, and what belonged to nobody becomes that user's.
#pragma once

#include "data/NovaPorSaber.h"
#include "data/Temporizadores.h"
#include "ui_frmNovoUser.h"

#include <QDialog>

class Geral;
struct Platform;

class frmNovoUser final : public QDialog, public Ui::frmNovoUser
{
    Q_OBJECT
public:
    frmNovoUser(Geral &geral, Platform &platform, QWidget *dono = nullptr);

private:
    void Form_Unload();
    void txtUser_Change();
    void cmdOk_Click();

    void Propor_Primeiro_Utilizador();
    void Adicionar_Utilizador(const QString &Utilizador);
    QString Ler_Id(const QString &Utilizador);
    void Escrever_Configuracao(const QString &id);
    void Entregar_Ao_Primeiro();

    Geral &geral_;
    Platform &platform_;
    NovaPorSaber novo_;
    PausaDosTemporizadores pausa_;
};
