// Shows what an older database holds and merges it into the current one. The merge ends the process.
#pragma once

#include "data/Temporizadores.h"
#include "interchange/Fusao.h"
#include "ui_frmImportarMDB.h"

#include <QDialog>

class Geral;
class Intercambio;
struct Platform;

class frmImportarMDB final : public QDialog, public Ui::frmImportarMDB
{
    Q_OBJECT
public:
    // Raises Failure for a database that can't be opened or counted.
    frmImportarMDB(Geral &geral, Platform &platform, Intercambio &intercambio, QWidget &janela);

private:
    void Form_Unload();
    void cmdSeguinte_Click();

    void Contar();
    void Escrever_Textos();
    bool Deixa_Se_Escrever();
    QString Resultado(const Fusao &fusao) const;

    Geral &geral_;
    Platform &platform_;
    Intercambio &intercambio_;
    QWidget &janela_;
    PausaDosTemporizadores pausa_;
    Fusao::Totais totais_;
    QString concluida_; // the two lines that close a merge, read while the database can be asked
    QString encerrar_;
};
