// A picture that comes to the editor of contacts from outside: a file dropped on the photograph, or points
// without a file, from the clipboard or out of another program's window.
#pragma once

#include "data/Fotografias.h"
#include "platform/Picture.h"
#include "platform/Translations.h"

#include <exception>
#include <map>
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
    // Where several desks share the data a path of this one says nothing to the others: there what a contact
    // keeps is the name of a picture in the database itself.
    enum class Onde { Ficheiro, Base };

    FotografiaNova(Geral &geral, Onde onde) : geral_(geral), onde_(onde) {}

    // The path of the picture's file; one that came without a file gets one, or that name. Of several files
    // the first counts. Nothing is fetched from a network. Raises FotografiaRecusada, and then nothing has
    // changed.
    QString Caminho(const QMimeData &dados);

    // Whether a picture that came without a file is there by that path or name.
    bool Feita_Aqui(const QString &caminho) const;

    // What a contact keeps of a file that a person has chosen: its path, or the name of what is in it. Raises
    // FotografiaRecusada where the database can't hold that.
    QString De_Ficheiro(const QString &caminho);

    // The picture of what Caminho() or De_Ficheiro() told. Raises Failure.
    Picture Imagem(const QString &Fotografia) const;
    bool Por_Guardar(const QString &Fotografia) const { return por_guardar_.contains(Fotografia); }

    // To be called with the writing of the contact that keeps it: into the database with it, if it belongs
    // there. Raises Failure.
    void Guardar_Na_Base(const QString &Fotografia);

    // The editor closes: of the files made here only the one that the contact keeps stays.
    void Arrumar(const QString &ficou);

    // A contact keeps another picture than that from now on: if it was made here, and no contact keeps it any
    // more, its file goes. Of a picture that somebody chose the file is somebody's own.
    void Abandonar(const QString &caminho);

private:
    QString Guardar(const QImage &imagem);
    QString Guardar_Em_Ficheiro(const QImage &imagem);
    QString Por_Na_Mao(const QByteArray &bytes, const QString &de_onde);

    Geral &geral_;
    Onde onde_;
    QStringList guardadas_;                     // files made here
    QStringList sem_ficheiro_;                  // names of what came without one
    std::map<QString, QByteArray> por_guardar_; // by their names; what nobody keeps goes with the object
};
