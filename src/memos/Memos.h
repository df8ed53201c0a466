// The notes on the desktop: makes new ones, brings the stored ones back, and owns those that are there.
#pragma once

#include <functional>
#include <QObject>
#include <QPointer>
#include <vector>

class frmMemo;
class Geral;
class Janela;
struct Platform;

class Memos final : public QObject
{
    Q_OBJECT
public:
    Memos(Janela &janela, Geral &geral, Platform &platform);
    ~Memos() override;

    // Opens the notes of the session's user, up to a hundred; further rows stay closed.
    void Restaurar();

private:
    void Memo_Click();
    void Abrir(const std::function<void(frmMemo &)> &mostrar);
    QPoint Lugar_Da_Proxima() const;

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    std::vector<QPointer<frmMemo>> notas_; // empty where a note has been deleted since
};
