// The sounds of the program: playing one, and which file an event sounds with.
#pragma once

class Geral;
class QString;
class Sound;

// Plays a wave file without waiting. Whatever goes wrong, nobody is told.
void Tocar_Som(Sound &sound, const QString &ficheiro);

// The user's own choice, or the program's file where there is none.
QString Som_Do_Email(const Geral &geral);
QString Som_Da_Tarefa(const Geral &geral);
