// The texts of the browse dialog in its languages.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>

namespace kelu {

struct BrowseTexts {
    const char* caption;
    std::array<const char*, 4> folders;
    const char* ok;
    const char* cancel;
    const char* lookIn;
    const char* back;
    const char* up;
    const char* viewsTip;
    std::array<const char*, 5> views;   ///< large, small, list, details, thumbnails
    std::array<const char*, 4> titles;  ///< of the columns: name, size, type, date
    const char* empty;                  ///< in a folder without folders and pictures
};

inline constexpr BrowseTexts kBrowseEnglish{"Open",
                                            {"My Pictures", "Gallery", "My Documents", "My Computer"},
                                            "OK",
                                            "Cancel",
                                            "Look in:",
                                            "Back one folder",
                                            "Move up one folder",
                                            "Views",
                                            {"Large Icons", "Small Icons", "List", "Details", "Thumbnails"},
                                            {"Name", "Size", "Type", "Date"},
                                            "No pictures in this folder"};

inline constexpr BrowseTexts kBrowseSpanish{
    "Abrir",
    {"Mis Imágenes", "Galería", "Mis Documentos", "Mi PC"},
    "OK",
    "Cancelar",
    "Mirar en:",
    "Volver una carpeta",
    "Avanzar una carpeta",
    "Vistas",
    {"Iconos Grandes", "Iconos Pequeños", "Lista", "Detalles", "Miniaturas de Imágenes"},
    {"Nombre", "Tamaño", "Tipo", "Fecha"},
    "No hay imágenes en esta carpeta"};

/// The texts of a language number, "0" and "1" English, "2" Spanish; null for any other.
inline const BrowseTexts* FindBrowseTexts(const QString& id) {
    if (id == u"0" || id == u"1") return &kBrowseEnglish;
    return id == u"2" ? &kBrowseSpanish : nullptr;
}

}  // namespace kelu
