#pragma once

#include <wx/string.h>

#include <string>

/// Texts inside the program are Unicode, files and file names are bytes. The conversion is UTF-8 under every
/// locale, and bytes that are not UTF-8 survive the way there and back, so a project written under one
/// language reads the same under another and no file name is lost.

std::string ToBytes(const wxString& text);
wxString FromBytes(const std::string& bytes);

/// Makes wx use the same conversion for file names. Called once at start, before any file is opened.
void InstallFileNameConversion();
