// The search window: looks for a text in one field of all contacts and steps through the hits, each of which
// is shown on the card of the main window. Not modal, and a window of its own: it may be open while the main
// one is hidden.
#pragma once

#include "ui_frmProcurar.h"

#include "data/Comandos.h"

#include <QDialog>
#include <vector>

class ComboBox;
class Geral;
class Janela;
class Recordset;
class TamanhoGuardado;
struct Platform;

class frmProcurar final : public QDialog, public Ui::frmProcurar
{
    Q_OBJECT
public:
    frmProcurar(Janela &Main, Geral &geral, Platform &platform);

    void Abrir();
    // An open window is known by its caption.
    bool Aberta() const { return !windowTitle().isEmpty(); }

    // Forgets every hit: the next click on cmdProcurar is a new search.
    void Reset_Pesquisa();

    // Left of the window, in twips, by the screen's width and height joined by an "x": over the right side of
    // the main window on a small screen, to its left on a middling one.
    static int Left_Por_Resolucao(const QString &resolucao, int Main_Left);

Q_SIGNALS:
    // A hit is on the card: the main window is to be seen.
    void Trazer_Main();

protected:
    bool event(QEvent *event) override;

private:
    void Tomar_Tamanho();
    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void cmdProcurar_Click();
    void ListaNomes_Click();

    struct OpcaoDeTexto {
        const QRadioButton *opcao;
        ComandoComLinhas comando;
    };
    struct OpcaoDeNumero {
        const QRadioButton *opcao;
        ComandoComLinhas comando;
        std::vector<const char *> colunas;
    };
    // A contact's numbers, digits only.
    struct LinhaProcura {
        int linha; // its row in the main window's ListaNomes, if the user sees every contact
        std::vector<QString> numeros;
    };

    void Mostrar_Seguinte();
    void Nova_Procura();
    void Procurar_Texto(const OpcaoDeTexto &opcao);
    void Ler_Numeros(const OpcaoDeNumero &opcao);
    void Procurar_Numero();

    Janela &Main_;
    Geral &geral_;
    Platform &platform_;
    ListBox &Main_ListaNomes, &Main_ListaNomes2;
    ComboBox &Main_ComboGrupos;

    TamanhoGuardado *tamanho_ = nullptr; // a child of the list of hits
    std::vector<OpcaoDeTexto> textos_;
    std::vector<OpcaoDeNumero> numeros_;
    std::vector<LinhaProcura> ListViewProcura;
    std::size_t PosicaoPesquisa = 1; // 1-based row of ListViewProcura at which the search goes on
};
