// The original card of a contact that came as one: what of it found no column is not lost.
#pragma once

#include <functional>
#include <optional>
#include <QByteArray>
#include <QString>

class DE;

struct CartaoGuardado {
    QString IDContacto; // in digits
    QString UID;
    QByteArray cartao;
};

class CartoesGuardados
{
public:
    explicit CartoesGuardados(DE &de) : de_(de) {}

    // In the place of the contact's earlier one. Raises Failure where the database takes none. An older one
    // that takes no writing has no cards at all.
    void Guardar(const CartaoGuardado &cartao);
    // The same for the contact that the command before this one added. Its number is the store's affair:
    // while writes are gathered it may yet become another.
    void Guardar_Do_Novo(const QString &UID, const QByteArray &cartao);

    std::optional<CartaoGuardado> Ler(const QString &IDContacto);

    // All of them by the IDs of their contacts, without the cards. The work must not ask for them again.
    void Percorrer(const std::function<void(const QString &IDContacto, const QString &UID)> &linha);

    void Eliminar(const QString &IDContacto);
    void Eliminar_Do_Grupo(const QString &IDGrupo);

private:
    DE &de_;
};
