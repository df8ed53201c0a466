// The fields of one user as frmNovoUser and frmEditUser show them: name, password twice, rights, tray
// preference.
#pragma once

#include "ui_CamposUtilizador.h"

#include <array>
#include <QWidget>

class Geral;
struct Platform;

class CamposUtilizador final : public QWidget, public Ui::CamposUtilizador
{
    Q_OBJECT
public:
    explicit CamposUtilizador(QWidget *dono = nullptr);

    void Legendar(Geral &geral);

    // Disables the boxes of the five rights; the tray preference stays free.
    void Fixar_Direitos();

    // Refuses, with its message, two passwords that differ and a name that another user bears. One's own
    // present name may stay.
    bool Aceitar(Geral &geral, Platform &platform, const QString &nome_actual = QString()) const;

    // What the first password box holds, as it is to be stored.
    QString Senha_Codificada() const;

    // The boxes of the five rights, in their order on the form.
    std::array<QCheckBox *, 5> Direitos() const;

private:
    bool Recusar(Geral &geral, Platform &platform, qint16 texto, QLineEdit &recusado) const;
};

// A check box as the commands take it: "0" or "1".
QString Valor(const QCheckBox &caixa);
