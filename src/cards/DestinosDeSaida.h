// Where contacts go that leave the book: into one file, or into one each. What was not concluded leaves no
// trace: neither a part of a file nor some of the files. Raises Failure::PathFileAccess, with the file's path
// as its source, where something could not be written; what stood there before is still there.
#pragma once

#include "platform/ReplaceFile.h"

#include <QSet>
#include <QString>
#include <QStringList>

class DestinoDeSaida
{
public:
    DestinoDeSaida() = default;
    DestinoDeSaida(const DestinoDeSaida &) = delete;
    DestinoDeSaida &operator=(const DestinoDeSaida &) = delete;
    virtual ~DestinoDeSaida() = default;

    // The name is that of the contact.
    virtual void Juntar(const QString &nome, const QByteArray &bytes) = 0;
    virtual void Concluir() = 0;
};

// In the place of a file that stands there already.
class NumFicheiro final : public DestinoDeSaida
{
public:
    explicit NumFicheiro(QString caminho);

    void Juntar(const QString &nome, const QByteArray &bytes) override;
    void Concluir() override;

private:
    QString caminho_;
    FileReplacement ficheiro_;
};

// Each file is called like its contact, and never like one that stands there already.
class NumaPasta final : public DestinoDeSaida
{
public:
    NumaPasta(QString pasta, const QString &terminacao); // "vcf"
    ~NumaPasta() override;

    void Juntar(const QString &nome, const QByteArray &bytes) override;
    void Concluir() override { escritos_.clear(); }

private:
    QString Livre(const QString &nome);

    QString pasta_;
    QString terminacao_;
    QSet<QString> ocupados_; // in lower case: some disks know no other
    QHash<QString, int> proximo_;
    QStringList escritos_;
};

// A name that every system takes for a file, without an ending: nothing that parts folders or means something
// to one of them, not too long, not empty.
QString Nome_De_Ficheiro(const QString &nome);
