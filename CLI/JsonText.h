// SPDX-License-Identifier: MIT
// Values as JSON text, for reports that must survive a lack of memory: making one may throw
// std::bad_alloc, destroying one does nothing but free it. (The destructors of a common library
// allocate, and would end the program in the middle of an update.)
//
// Owns:    its text.
// Threads: any.
// Invariant: the text is one valid JSON value, on one line, in valid UTF-8.
#pragma once
#include <concepts>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class Json {
public:
    Json() : m_text("null") { }
    Json(bool value) : m_text(value ? "true" : "false") { }
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) Json(Number value) : m_text(std::to_string(value)) { }
    Json(double value); // must be finite; the shortest form, with a point
    Json(const char* text) : Json(std::string_view(text)) { }
    Json(const std::string& text) : Json(std::string_view(text)) { }
    Json(std::string_view text); // quoted; U+FFFD in place of bytes that are not UTF-8
    Json(const std::vector<std::string>& texts);
    // An object, its keys in this order; the keys need no quoting.
    Json(std::initializer_list<std::pair<const char*, Json>> members);

    static Json array(const std::vector<Json>& items);
    // A further member; only of an object.
    void add(const char* key, const Json& value);

    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    std::string m_text;
};
