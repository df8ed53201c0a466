// What becomes of a file that somebody opens with the program: its ending decides which form imports it.
// Nothing is imported without that form.
#pragma once

#include <array>
#include <QObject>
#include <QStringList>

class Intercambio;

class FicheirosPedidos final : public QObject
{
    Q_OBJECT
public:
    FicheirosPedidos(QObject &dono, Intercambio &intercambio);

    // The endings of the files that have an answer, in small letters and without their dot.
    static QStringList Terminacoes();

    // Returns when the form was closed. The path is absolute; an unknown ending gets no answer.
    void Abrir(const QString &caminho);

private:
    struct Resposta {
        const char16_t *terminacao;
        void (FicheirosPedidos::*abrir)(const QString &caminho);
    };
    static const std::array<Resposta, 4> Respostas;

    void Importar(const QString &caminho);
    void ImportarContactos(const QString &caminho);

    Intercambio &intercambio_;
};
