#include "controls/Palettes.h"

namespace
{
using Group = QPalette::ColorGroup;
using Role = QPalette::ColorRole;

struct Entry {
    Role role;
    QRgb colour;
};

constexpr Entry light[]{
    {Role::Highlight, 0x1f6f9f},   {Role::HighlightedText, 0xffffff}, {Role::Link, 0x1b5e96},
    {Role::LinkVisited, 0x7a3f8a}, {Role::PlaceholderText, 0x6a6a6a}, {Role::ToolTipBase, 0xffffdc},
    {Role::ToolTipText, 0x000000},
};

constexpr Entry dark[]{
    {Role::Window, 0x2b2e31},        {Role::WindowText, 0xe8eaec},  {Role::Base, 0x1f2224},
    {Role::AlternateBase, 0x262a2d}, {Role::Text, 0xe8eaec},        {Role::Button, 0x34383b},
    {Role::ButtonText, 0xe8eaec},    {Role::BrightText, 0xffffff},  {Role::Light, 0x4d5257},
    {Role::Midlight, 0x42474b},      {Role::Mid, 0x26292b},         {Role::Dark, 0x1a1c1e},
    {Role::Shadow, 0x0f1011},        {Role::Highlight, 0x1f6f9f},   {Role::HighlightedText, 0xffffff},
    {Role::Link, 0x7fc1ea},          {Role::LinkVisited, 0xcaa5dc}, {Role::PlaceholderText, 0x9aa1a7},
    {Role::ToolTipBase, 0x42474b},   {Role::ToolTipText, 0xf2f3f4},
};

constexpr QRgb dimmedLetters = 0x7d8489; // of what is switched off, on the dark window
constexpr QRgb dimmedHighlight = 0x4d5257;
} // namespace

QPalette lightPalette(const QPalette &ofTheStyle)
{
    QPalette palette = ofTheStyle;
    for (const auto &[role, colour] : light)
        for (const auto group : {Group::Active, Group::Inactive})
            palette.setColor(group, role, colour);
    return palette;
}

QPalette darkPalette()
{
    QPalette palette;
    for (const auto &[role, colour] : dark)
        palette.setColor(role, colour);
    for (const auto role : {Role::WindowText, Role::Text, Role::ButtonText, Role::HighlightedText})
        palette.setColor(Group::Disabled, role, dimmedLetters);
    palette.setColor(Group::Disabled, Role::Highlight, dimmedHighlight);
    return palette;
}
