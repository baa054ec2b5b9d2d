#pragma once

#include <SDL.h>
#include <array>
#include <cstdint>

namespace Vantrel {

/** What is printed of a kind of window event. */
struct WindowEventText {
    std::uint8_t kind;
    const char* name;
    /** What the main loop prints behind the name. */
    const char* ending = "...\n";
};

inline constexpr std::array<WindowEventText, 15> windowEventTexts{{
    {SDL_WINDOWEVENT_NONE, "SDL_WINDOWEVENT_NONE"},
    {SDL_WINDOWEVENT_SHOWN, "SDL_WINDOWEVENT_SHOWN"},
    {SDL_WINDOWEVENT_HIDDEN, "SDL_WINDOWEVENT_HIDDEN"},
    {SDL_WINDOWEVENT_EXPOSED, "SDL_WINDOWEVENT_EXPOSED"},
    {SDL_WINDOWEVENT_MOVED, "SDL_WINDOWEVENT_MOVED"},
    {SDL_WINDOWEVENT_RESIZED, "SDL_WINDOWEVENT_RESIZED", ":...\n"},
    {SDL_WINDOWEVENT_SIZE_CHANGED, "SDL_WINDOWEVENT_SIZE_CHANGED"},
    {SDL_WINDOWEVENT_MINIMIZED, "SDL_WINDOWEVENT_MINIMIZED"},
    {SDL_WINDOWEVENT_MAXIMIZED, "SDL_WINDOWEVENT_MAXIMIZED"},
    {SDL_WINDOWEVENT_RESTORED, "SDL_WINDOWEVENT_RESTORED"},
    {SDL_WINDOWEVENT_ENTER, "SDL_WINDOWEVENT_ENTER", "... (Window has Mouse Focus)\n"},
    {SDL_WINDOWEVENT_LEAVE, "SDL_WINDOWEVENT_LEAVE", "... (Window lost Mouse Focus)\n"},
    {SDL_WINDOWEVENT_FOCUS_GAINED, "SDL_WINDOWEVENT_FOCUS_GAINED", "... (Window has Keyboard Focus)\n"},
    {SDL_WINDOWEVENT_FOCUS_LOST, "SDL_WINDOWEVENT_FOCUS_LOST", "... (Window lost Keyboard Focus)\n"},
    {SDL_WINDOWEVENT_CLOSE, "SDL_WINDOWEVENT_CLOSE"},
}};

/** Null for a kind that has no text. */
constexpr const WindowEventText* findWindowEventText(std::uint8_t kind) {
    for (const WindowEventText& row : windowEventTexts) {
        if (row.kind == kind) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace Vantrel
