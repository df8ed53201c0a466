// A note on the desktop: a window of its own without a frame, dragged by its title and sized by its edges.
// It is one row of TblMemos and writes itself there; while the database refuses it, the note says so. Where
// another desk has deleted that row, or has written another text to it, a text that was typed here gets a row
// of its own.
// To close it is to delete it.
#pragma once

#include "controls/LongText.h"
#include "data/Comandos.h"
#include "data/NovaPorSaber.h"
#include "ui_frmMemo.h"

#include <optional>
#include <QStringList>
#include <QWidget>

class Geral;
class Recordset;
struct Platform;

class frmMemo final : public QWidget, public Ui::frmMemo
{
    Q_OBJECT
public:
    frmMemo(Geral &geral, Platform &platform);

    // Shows a new note with the looks of the settings and gives it the keyboard. It gets its row as it
    // appears. Raises Failure for a setting that is no number.
    void Criar(const QString &titulo, const QPoint &lugar);

    // Shows the note of the current row. A cell that cannot be taken leaves what the design has. Where no
    // screen shows the note's place any more it stands where its title can be reached, and its row keeps the
    // old place until somebody moves it.
    void Restaurar(const Recordset &rs);

    // The row of the note; empty before it has one.
    QString ID() const { return txtId->text(); }
    // Somebody is at it, or has written in it what is not in its row: nothing may be taken from it.
    bool Em_Uso() const;

    // The note as its row is now, after another desk has changed it.
    void Seguir(const Recordset &rs);
    // Another desk has taken its row away: the next save gives it one.
    void Perder_Linha();
    // What was not accepted is tried once more, without a word.
    void Guardar_Se_Mudou();

Q_SIGNALS:
    // Nobody is at it any more.
    void Largada_Do_Teclado();

protected:
    bool event(QEvent *evento) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void lblTitle_MouseMove(const QPoint &canto);
    void LabelH_MouseMove(const QPoint &canto);
    void LabelV_MouseMove(const QPoint &canto);
    void LabelHV_MouseMove(const QPoint &canto);
    void Largada();
    void txtMemo_Change();
    void cmdGuardar_Click();
    void cmdFonte_Click();
    void cmdCor_Click();
    void cmdFechar_Click();

    void Ler_Linha(const Recordset &rs);
    void Aplicar_Aparencia();
    void Redimensionar(int largura, int altura);
    void Dispor();
    void Dispor_Marca(int topo);
    void Dispor_Rebordo();
    void Anotar_Lugar();
    void Marcar(bool por_guardar);
    void Gravar(ComandoSemLinhas comando, const QString &ultimo);
    void Adicionar();
    void Actualizar();
    QString Id_Da_Linha_Inserida();

    Geral &geral_;
    Platform &platform_;
    LongText Descricao_;
    QString descricao_da_linha_; // as it was read or written last
    QString descricao_enviada_;  // to that row; it may have arrived without an answer
    NovaPorSaber nova_;
    // Where the program itself has put the window; txtLeft and txtTop are true as long as it stands there.
    std::optional<QPoint> posta_;
    QStringList lugar_inserido_; // LeftForm and TopForm of a row that was added; empty before
    bool adiar_ = false; // a resize does not save: the row is being read, or a drag has not come to its end
};
