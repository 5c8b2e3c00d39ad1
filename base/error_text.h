#pragma once

#include <QString>

#include <exception>

/// What a user is told of an error: its message, and before it, for a server that cannot be reached, what that means.
QString shownText(const std::exception& error);
