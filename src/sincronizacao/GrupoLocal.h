// The contacts of the one group that is synchronised, as synchronising reads and writes them. What writes
// must run within CorridaEmCurso::Escrever.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <bitset>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <QByteArray>

class Geral;
struct ContactoDaFonte;

// The numbers of contacts have come to their end.
struct LivroCheio : std::exception {
};

class GrupoLocal
{
public:
    struct Linha {
        ColunasDoContacto colunas; // with IDGrupo
        std::bitset<ColunasDoContacto::quantas> nulas;
        bool a_vista = true; // in a group that the user sees
    };

    GrupoLocal(Geral &geral, int IDGrupo);

    // Whether it is there, and the user sees it.
    bool Existe() const;

    // By their IDs.
    std::map<int, ColunasDoContacto> Todos() const;
    // Of contacts that have one, in any group.
    void Percorrer_UIDs(const std::function<void(const QString &UID, int ID)> &um) const;

    // Whatever its group. Nothing for one that is not there.
    std::optional<Linha> Ler(int ID) const;
    bool E_Deste_Grupo(const Linha &linha) const;

    // Returns the ID. Raises LivroCheio where there is none left.
    int Inserir(const ContactoDaFonte &fonte);
    // It comes into this group if it was not there. The picture is kept where the column names that of the
    // card.
    void Actualizar(int ID, const Linha &antes, const ColunasDoContacto &colunas,
                    const ContactoDaFonte &fonte);
    void Eliminar(int ID);

    // The original card that goes with the contact.
    QByteArray Cartao(int ID) const;
    QString UID(int ID) const;
    // Another contact has the same: this one gets one of its own, in its card as well.
    void Dar_Outro_UID(int ID);
    void Guardar_Cartao(int ID, const QString &UID, const QByteArray &cartao);

private:
    void Guardar_Fotografia(const ColunasDoContacto &colunas, const ContactoDaFonte &fonte);

    Geral &geral_;
    int IDGrupo_;
};
