// Nobody here can be made one who owns nothing.
#pragma once

class SemPrivilegios
{
public:
    SemPrivilegios() {} // NOLINT(modernize-use-equals-default): one that is constant wants a constructor
    bool Possivel() const { return false; }
};
