// What a person does to the desktop window, as events of the window system.
#pragma once

#include "host/qt/host.h"

#include <string_view>

namespace tavo::qt {

// The widgets of the toolkit get these events just as from a real mouse and keyboard.
void PressMouse(QtHost& host, Point screen);
void MoveMouse(QtHost& host, Point screen);
void ReleaseMouse(QtHost& host, Point screen);
void PressKey(QtHost& host, int key, int modifiers);
void ReleaseKey(QtHost& host, int key, int modifiers);
void TypeCharacter(QtHost& host, char16_t character);
// Characters that come with one press of a key.
void TypeTogether(QtHost& host, std::u16string_view text);
// A tap in the middle of an area of the screen.
void TapMiddle(QtHost& host, const Rect& area);

// The real pixel in the middle of a logical one, of what the desktop window shows.
Color ReadPixel(QtHost& host, Point screen);

} // namespace tavo::qt
