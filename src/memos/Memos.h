// The notes on the desktop: makes new ones, brings the stored ones back, and owns those that are there.
#pragma once

#include <functional>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <vector>

class frmMemo;
class Geral;
class Janela;
class Recordset;
struct Platform;

class Memos final : public QObject
{
    Q_OBJECT
public:
    Memos(Janela &janela, Geral &geral, Platform &platform);
    ~Memos() override;

    // Opens the notes of the session's user, up to a hundred; further rows stay closed.
    void Restaurar();

    // Another desk has changed notes of the session's user, or the session has another user: those that are
    // there follow their rows, new ones open without the keyboard, and those without a row close. One that is in
    // use stays as it is until it is left.
    void Seguir();

    // What a server that was away did not take is tried once more.
    void Guardar_O_Que_Falta();

private:
    void Memo_Click();
    frmMemo *Nota(const QString &ID) const;
    void Seguir_Linha(const Recordset &rs);
    void Fechar_Sem_Linha(const QStringList &linhas);
    void Largada_Do_Teclado();
    void Abrir(const std::function<void(frmMemo &)> &mostrar);
    QPoint Lugar_Da_Proxima() const;

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    std::vector<QPointer<frmMemo>> notas_; // empty where a note has been deleted since
    bool por_seguir_ = false; // a note was in use when its row changed
};
