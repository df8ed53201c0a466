// The ways by which a picture comes on to a form from outside: dropped on the photograph, or pasted by the
// entry of its right-click menu or by the keys, where no text field wants them for a text.
#pragma once

#include <QAction>
#include <QObject>

class QDropEvent;
class QLabel;
class QMimeData;

class EntradaDeFotografia final : public QObject
{
    Q_OBJECT
public:
    // The form, and the photograph on it.
    EntradaDeFotografia(QWidget &form, QLabel &Thumb);

    // The entry of the photograph's menu, in that language.
    void Legendar(const QString &lingua);

Q_SIGNALS:
    // Something that could be a picture has come. The data lives as long as the call.
    void Veio(const QMimeData &dados);

protected:
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    void Colar_Click();
    void Permitir_Colar();
    bool Receber(QDropEvent &evento);

    QLabel &Thumb_;
    QAction Colar_;
};
