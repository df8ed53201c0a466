// The main window's title: program, version of the database, user. Without a user a blank remains at its end.
#pragma once

class Geral;
class QString;

QString Titulo(const Geral &geral);
