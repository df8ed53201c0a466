// Contacts that somebody drops on the main window or pastes into it: files of cards and tables, and cards
// without a file. What they are is only looked at here; the form comes before anything is imported.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>

class QDropEvent;
class QMimeData;
class QWidget;

class EntradaDeContactos final : public QObject
{
    Q_OBJECT
public:
    // The window takes drops from now on, and owns this.
    explicit EntradaDeContactos(QWidget &janela);

Q_SIGNALS:
    void Ficheiros(const QStringList &caminhos);
    void Cartoes(const QByteArray &bytes);

protected:
    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    void Colar();
    bool Receber(QDropEvent &evento);
    void Entregar(const QMimeData &dados);
};
