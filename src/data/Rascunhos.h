// What is not saved yet when the process has to end: notes write themselves, and what was typed into an
// editor and not confirmed is kept in a file beside config.ini. It never reaches the database by itself: the
// same editor offers it when it opens again for the same user and record.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QObject>

class Rascunho;

class Rascunhos final : public QObject
{
    Q_OBJECT
public:
    explicit Rascunhos(QString ficheiro);

    // Whether an open editor holds something that was typed and not confirmed.
    bool Por_Confirmar() const;

    // Saves all that can be saved without asking. False where the file could not be written.
    bool Guardar();

    // The fields kept for that editor; empty where none are.
    QJsonObject Guardado(const QJsonObject &identidade) const;
    void Esquecer(const QJsonObject &identidade);

    // An editor that opens, and one that closes.
    void Entrar(Rascunho &rascunho) { abertos_ << &rascunho; }
    void Sair(Rascunho &rascunho) { abertos_.removeOne(&rascunho); }

Q_SIGNALS:
    // For whatever saves itself without being asked.
    void Guardar_Ja();

private:
    QJsonArray Ler() const;
    bool Escrever(const QJsonArray &entradas) const;

    QString ficheiro_;
    QList<Rascunho *> abertos_;
};
