// The part of a long text that shows a person how it differs from another.
#pragma once

class QString;

// A short text whole. Of a long one some lines from just before the place at which the two part, with dots
// where something is left out.
QString Trecho_Que_Difere(const QString &texto, const QString &outro);
