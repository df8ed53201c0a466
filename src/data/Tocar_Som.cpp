#include "data/Tocar_Som.h"

#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Sound.h"

using namespace Qt::StringLiterals;

void Tocar_Som(Sound &sound, const QString &ficheiro)
{
    skipFailure([&] { sound.play(ficheiro); });
}

QString Som_Do_Email(const Geral &geral)
{
    return geral.SomEmail.isEmpty() ? geral.Ficheiro(u"newemail.wav"_s) : geral.SomEmail;
}

QString Som_Da_Tarefa(const Geral &geral)
{
    return geral.SomTarefa.isEmpty() ? geral.Ficheiro(u"tarefa.wav"_s) : geral.SomTarefa;
}
