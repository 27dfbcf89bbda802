#include "app/book/Svg.h"

#include <cstdio>

#include "engine/core/TextEncoding.h"

namespace {

/// One decimal, whatever the locale.
std::string figure(float value) {
    const auto tenths = static_cast<int32_t>(value * 10 + (value < 0 ? -0.5F : 0.5F));
    const int32_t whole = tenths / 10;
    const int32_t rest = tenths < 0 ? -tenths % 10 : tenths % 10;
    char text[24];
    std::snprintf(text, sizeof text, "%s%d.%d", tenths < 0 && whole == 0 ? "-" : "", whole, rest);
    return text;
}

std::string attribute(const char* name, float value) {
    return std::string(" ") + name + "=\"" + figure(value) + "\"";
}

} // namespace

std::string htmlOf(const zel::String& text) {
    std::string html;
    for (const char letter : zel::utf8Of(text.view()))
        switch (letter) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += letter;
        }
    return html;
}

void Svg::line(float x1, float y1, float x2, float y2, std::string_view style) {
    body += "<line" + attribute("x1", x1) + attribute("y1", y1) + attribute("x2", x2) +
            attribute("y2", y2) + " ";
    body.append(style).append("/>");
}

void Svg::rect(float x, float y, float w, float h, std::string_view style) {
    body += "<rect" + attribute("x", x) + attribute("y", y) + attribute("width", w) +
            attribute("height", h) + " ";
    body.append(style).append("/>");
}

void Svg::circle(float x, float y, float radius, std::string_view style) {
    body += "<circle" + attribute("cx", x) + attribute("cy", y) + attribute("r", radius) + " ";
    body.append(style).append("/>");
}

void Svg::path(float x, float y, std::string_view d, std::string_view style) {
    body += "<path d=\"M" + figure(x) + " " + figure(y) + " ";
    body.append(d).append("\" ").append(style).append("/>");
}

void Svg::text(float x, float y, const zel::String& words, Anchor anchor, std::string_view style) {
    constexpr const char* Anchors[] = {"start", "middle", "end"};
    body += "<text" + attribute("x", x) + attribute("y", y) + " text-anchor=\"" +
            Anchors[static_cast<int>(anchor)] + "\" ";
    body.append(style).append(">").append(htmlOf(words)).append("</text>");
}

void Svg::point(float x, float y) {
    if (!points.empty())
        points += ' ';
    points += figure(x) + "," + figure(y);
}

void Svg::endLine(std::string_view style) {
    body += "<polyline points=\"" + points + "\" fill=\"none\" ";
    body.append(style).append("/>");
}

std::string Svg::ornament(std::string_view cssClass, int32_t shownWidth) const {
    return "<svg class=\"" + std::string(cssClass) + "\" viewBox=\"0 0 " + figure(width) + " " +
           figure(height) + "\" width=\"" + std::to_string(shownWidth) +
           "\" aria-hidden=\"true\">" + body + "</svg>";
}

std::string Svg::element(const zel::String& title, const zel::String& description,
                         std::string_view cssClass) const {
    const std::string name = htmlOf(title);
    const std::string classText =
        cssClass.empty() ? "" : "class=\"" + std::string(cssClass) + "\" ";
    return "<svg " + classText + "viewBox=\"0 0 " + figure(width) + " " + figure(height) +
           "\" role=\"img\" aria-label=\"" + name + "\"><title>" + name + "</title><desc>" +
           htmlOf(description) + "</desc>" + body + "</svg>";
}
