// Files that somebody opens with the program wait here until it can take them: until the start is over and no
// form stands in front. A locked window asks for the password first, and without it they are dropped.
#pragma once

#include <functional>
#include <QObject>
#include <QStringList>
#include <QTimer>

class QWidget;
class SystemTray;

class FilaDeFicheiros final : public QObject
{
    Q_OBJECT
public:
    // What is done with each file returns when the next one may come. The window owns the queue.
    FilaDeFicheiros(QWidget &janela, SystemTray &tray, std::function<void(const QString &)> abrir);

    // The start is over.
    void Comecar();

    void Juntar(const QStringList &caminhos);

private:
    void Tentar();
    void Trazer_Janela();
    void Acabar();
    bool Ha_Formulario_Aberto() const;

    QWidget &janela_;
    SystemTray &tray_;
    const std::function<void(const QString &)> abrir_;
    QStringList caminhos_;
    QTimer espera_; // runs only while files wait
    bool comecou_ = false;
    bool trazida_ = false; // the window came forward for those that wait
};
