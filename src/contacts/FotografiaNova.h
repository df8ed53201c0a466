// A picture that comes to the editor of contacts from outside: a file dropped on the photograph, or points
// without a file, from the clipboard or out of another program's window.
#pragma once

#include "platform/Translations.h"

#include <exception>
#include <QString>
#include <QStringList>
#include <utility>

class Geral;
class QImage;
class QMimeData;

// Why a picture was not taken: words for the person, with what they are about behind them.
class FotografiaRecusada : public std::exception
{
public:
    FotografiaRecusada(const Translations &palavras, QString sobre)
        : palavras_(&palavras), sobre_(std::move(sobre))
    {
    }
    QString Texto(const QString &lingua) const;

private:
    const Translations *palavras_; // of the program, not the object's own
    QString sobre_;
};

// Whether there is something that could be a picture. Whether it is one is told when it comes.
bool Pode_Ser_Fotografia(const QMimeData &dados);

class FotografiaNova
{
public:
    explicit FotografiaNova(Geral &geral) : geral_(geral) {}

    // The path under which a contact can keep the picture; of several files the first counts. Nothing is
    // fetched from a network. Raises FotografiaRecusada, and then nothing has changed.
    QString Caminho(const QMimeData &dados);

    // Whether the path is that of a picture which came without a file.
    bool Feita_Aqui(const QString &caminho) const { return guardadas_.contains(caminho); }

    // The editor closes: of the files made here only the one that the contact keeps stays.
    void Arrumar(const QString &ficou);

    // A contact keeps another picture than that from now on: if it was made here, and no contact keeps it any
    // more, its file goes. Of a picture that somebody chose the file is somebody's own.
    void Abandonar(const QString &caminho);

private:
    QString Guardar(const QImage &imagem);

    Geral &geral_;
    QStringList guardadas_;
};
