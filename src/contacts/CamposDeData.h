// Day, month and year of a birthday, and the one calendar that the three fields share: it moves under the
// field that asks for it, and the date that is chosen in it fills them.
#pragma once

#include <QDate>
#include <QObject>
#include <vector>

class Clock;
class QCalendarWidget;
class QDialog;
class QLineEdit;
class QLocale;

class CamposDeData final : public QObject
{
    Q_OBJECT
public:
    // The fields of the form, which owns them, and their calendar.
    struct Controlos {
        QLineEdit &txtDia, &txtMes, &txtAno;
        QCalendarWidget &Calendario;
    };

    // While the calendar is to be seen the form is higher than at other times.
    CamposDeData(QDialog &form, const Controlos &controlos, const Clock &clock);

    // The calendar in that language, on today.
    void Carregar(const QLocale &lingua);

    void Esvaziar();

    bool eventFilter(QObject *alvo, QEvent *evento) override;

private:
    struct Campo {
        QLineEdit *caixa;
        int left;                             // of the calendar under it, in twips
        bool CalendarioAno;                   // whether a date click fills the year as well
        int limite;                           // a number above it is what the calendar opens on
        int (QDate::*parte)() const;          // the part of today on which it opens otherwise
        QDate (*com_parte)(QDate, int parte); // a date with that part of it replaced
    };

    void Data_Click(const Campo &campo);
    void Data_KeyDown(const Campo &campo);
    void Calendario_DateClick(QDate dia);
    void Mostrar_Calendario(bool visivel);
    bool Fechar_Calendario();
    void Pintar_Fim_De_Semana();

    QDialog &form_;
    const Clock &clock_;
    QLineEdit &txtDia, &txtMes, &txtAno;
    QCalendarWidget &Calendario;
    std::vector<Campo> campos_;
    bool CalendarioAno = false; // of the field under which the calendar stands
    int altura_;                // of the form without the calendar, in pixels
};
