// Watches one editor for what is typed into it and not confirmed, and offers what was kept of its last time.
#pragma once

#include <functional>
#include <QJsonObject>
#include <QObject>

class Geral;
class QDialog;
struct Platform;

class Rascunho final : public QObject
{
    Q_OBJECT
public:
    // The form, which owns this, and which record it writes, as in "contacto 12"; asked for when the form
    // first shows. By then the form is filled: what differs later was typed.
    Rascunho(QDialog &form, Geral &geral, Platform &platform, std::function<QString()> registo);
    ~Rascunho() override;

    bool Mudou() const;

    // The fields that a person sees, by the names of their controls.
    QJsonObject Campos() const;

    // Which editor it is: the user, the database, the record.
    const QJsonObject &Identidade() const { return identidade_; }

    bool eventFilter(QObject *form, QEvent *evento) override;

Q_SIGNALS:
    // What was kept stands in the fields again.
    void Retomado();

private:
    void Comecar();
    void Oferecer();
    void Acabar();

    QDialog &form_;
    Geral &geral_;
    Platform &platform_;
    std::function<QString()> registo_;
    QJsonObject identidade_; // empty before the form has shown
    QJsonObject inicial_;
    bool acabou_ = false;
};
