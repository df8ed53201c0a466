// When the list of birthdays appears: at the start, at midnight, or when the user asks for it.
#pragma once

#include <memory>
#include <QObject>

class frmAniversarios;
class Geral;
class QWidget;
struct Platform;

class Aniversarios final : public QObject
{
    Q_OBJECT
public:
    // The window is enabled when the list closes.
    Aniversarios(QWidget &janela, Geral &geral, Platform &platform);
    ~Aniversarios() override;

    // Shows the list, even an empty one, and does not wait: the menu's entry.
    void Mostrar();

    // Shows the list with its first row selected and waits until it is closed; nothing when it is empty.
    void Mostrar_Ao_Iniciar();

private:
    void timerAniversarios_Timer();
    frmAniversarios &Formulario(); // loads it at its first use
    void Ler();
    void Largar_O_Escondido();
    bool Ha_Aniversarios() const;
    void Form_Unload();

    QWidget &janela_;
    Geral &geral_;
    Platform &platform_;
    std::unique_ptr<frmAniversarios> formulario_;
};
