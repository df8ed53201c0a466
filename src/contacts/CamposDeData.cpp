#include "contacts/CamposDeData.h"

#include "controls/Contrast.h"
#include "controls/Units.h"
#include "platform/Clock.h"

#include <algorithm>
#include <QCalendarWidget>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMouseEvent>
#include <QTextCharFormat>

namespace
{
constexpr int margem = 8; // pixels, below the calendar

// A day that the month doesn't have becomes its last one.
QDate Data_Mais_Proxima(int ano, int mes, int dia)
{
    const QDate primeiro(std::min(ano, 9999), std::min(mes, 12), 1);
    return primeiro.addDays(std::min(dia, primeiro.daysInMonth()) - 1);
}
QDate Com_Dia(QDate data, int dia) { return Data_Mais_Proxima(data.year(), data.month(), dia); }
QDate Com_Mes(QDate data, int mes) { return Data_Mais_Proxima(data.year(), mes, data.day()); }
QDate Com_Ano(QDate data, int ano) { return Data_Mais_Proxima(ano, data.month(), data.day()); }

// Keys that leave the field, and those that only go with others, aren't meant for it.
bool Tecla_Do_Campo(const QKeyEvent &tecla)
{
    switch (tecla.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
        return false;
    default:
        return true;
    }
}

bool Clique(const QEvent &evento)
{
    return evento.type() == QEvent::MouseButtonRelease &&
           static_cast<const QMouseEvent &>(evento).button() == Qt::LeftButton;
}

bool Escape(const QEvent &evento)
{
    return evento.type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent &>(evento).key() == Qt::Key_Escape;
}

bool Tecla(const QEvent &evento)
{
    return evento.type() == QEvent::KeyPress && Tecla_Do_Campo(static_cast<const QKeyEvent &>(evento));
}
} // namespace

CamposDeData::CamposDeData(QDialog &form, const Controlos &controlos, const Clock &clock)
    : QObject(&form),
      form_(form),
      clock_(clock),
      txtDia(controlos.txtDia),
      txtMes(controlos.txtMes),
      txtAno(controlos.txtAno),
      Calendario(controlos.Calendario),
      campos_{{&txtDia, 400, false, 0, &QDate::day, Com_Dia},
              {&txtMes, 1440, false, 0, &QDate::month, Com_Mes},
              {&txtAno, 2400, true, 1768, &QDate::year, Com_Ano}},
      altura_(form.height())
{
    for (const Campo &campo : campos_)
        campo.caixa->installEventFilter(this);
    form_.installEventFilter(this);
    Pintar_Fim_De_Semana();
    connect(&Calendario, &QCalendarWidget::clicked, this, &CamposDeData::Calendario_DateClick);
    connect(&Calendario, &QCalendarWidget::activated, this, &CamposDeData::Calendario_DateClick);
}

void CamposDeData::Carregar(const QLocale &lingua)
{
    Calendario.setLocale(lingua); // first: a week that begins on another day moves the choice
    Calendario.setSelectedDate(clock_.today());
}

void CamposDeData::Esvaziar()
{
    for (const Campo &campo : campos_)
        campo.caixa->clear();
}

bool CamposDeData::eventFilter(QObject *alvo, QEvent *evento)
{
    const auto campo =
        std::find_if(campos_.begin(), campos_.end(), [&](const Campo &c) { return c.caixa == alvo; });
    if (campo != campos_.end() && Clique(*evento)) Data_Click(*campo);
    if (campo != campos_.end() && Tecla(*evento)) Data_KeyDown(*campo);
    if (alvo == &form_ && evento->type() == QEvent::PaletteChange) Pintar_Fim_De_Semana();
    return alvo == &form_ && Escape(*evento) && Fechar_Calendario();
}

// The toolkit's red was made for white.
void CamposDeData::Pintar_Fim_De_Semana()
{
    QTextCharFormat formato;
    formato.setForeground(readableOn(Qt::red, form_.palette().color(QPalette::AlternateBase)));
    for (const Qt::DayOfWeek dia : {Qt::Saturday, Qt::Sunday})
        Calendario.setWeekdayTextFormat(dia, formato);
}

// Escape closes what stands in front: the calendar first, and then the form.
bool CamposDeData::Fechar_Calendario()
{
    if (!Calendario.isVisible()) return false;
    const bool com_o_teclado = Calendario.isAncestorOf(form_.focusWidget());
    Mostrar_Calendario(false);
    if (com_o_teclado) txtDia.setFocus();
    return true;
}

void CamposDeData::Data_Click(const Campo &campo)
{
    if (Calendario.isVisible()) {
        Mostrar_Calendario(false);
        if (campo.CalendarioAno) CalendarioAno = false;
        return;
    }
    const int escrito = campo.caixa->text().toInt();
    const int parte = escrito > campo.limite ? escrito : (clock_.today().*campo.parte)();
    Calendario.setSelectedDate(campo.com_parte(Calendario.selectedDate(), parte));
    Data_KeyDown(campo);
}

void CamposDeData::Data_KeyDown(const Campo &campo)
{
    Calendario.move(pixels(campo.left), Calendario.y());
    Mostrar_Calendario(true);
    CalendarioAno = campo.CalendarioAno;
}

// The form is as high as what it shows.
void CamposDeData::Mostrar_Calendario(bool visivel)
{
    form_.setFixedHeight(visivel ? Calendario.geometry().bottom() + margem : altura_);
    Calendario.setVisible(visivel);
    Calendario.raise();
}

void CamposDeData::Calendario_DateClick(QDate dia)
{
    Mostrar_Calendario(false);
    txtDia.setText(QString::number(dia.day()));
    txtMes.setText(QString::number(dia.month()));
    if (CalendarioAno) txtAno.setText(QString::number(dia.year()));
}
