// Where a running program is known by: in the user's own surroundings, so that two people on one machine do
// not call each other.
#pragma once

class QString;

namespace instance_place
{
// The user's folder for what belongs to running programs.
QString folder();

// The name by which a socket is reached that stands for that path in such a folder.
QString socketName(const QString &path);
} // namespace instance_place
