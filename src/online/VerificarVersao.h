// Once a day, asks the product's web server which version is the newest, and tells of one that differs from
// the last one seen. Driven by TimerDownload; a day's check repeats at each tick until an answer has been
// read.
#pragma once

#include "platform/HttpGet.h"

#include <QObject>

class Geral;
class Janela;
struct Platform;

class VerificarVersao final : public QObject
{
    Q_OBJECT
public:
    // The window's hidden text box txtMessages collects the progress lines.
    VerificarVersao(Janela &janela, Geral &geral, Platform &platform, QString servidor, quint16 porto = 80);

private:
    void TimerDownload_Timer();
    void Escrever_Linha(const QString &linha);
    void Descarregado(const QByteArray &conteudo);
    void Anunciar(const QString &versao);
    bool Confirma(const QString &versao);
    QString Ligacao_De_Download();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    QString servidor_;
    quint16 porto_;
    HttpGet pedido_;
    bool perguntando_ = false; // the question is on the screen, and the timer goes on under it
};
