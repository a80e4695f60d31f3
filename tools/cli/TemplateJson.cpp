#include "TemplateJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace mervak::cli {

namespace {

QJsonObject areaJson(const Template& t, int16_t index) {
    const Area& a = t.area(index);
    return {
        {QStringLiteral("index"), index},
        {QStringLiteral("Page"), a.Page},
        {QStringLiteral("X0"), a.X0},
        {QStringLiteral("Y0"), a.Y0},
        {QStringLiteral("X1"), a.X1},
        {QStringLiteral("Y1"), a.Y1},
        {QStringLiteral("ClipFlag"), a.ClipFlag},
        {QStringLiteral("Clip"), a.Clip},
        {QStringLiteral("ActionText"), a.ActionText},
        {QStringLiteral("Flags"), a.Flags},
    };
}

} // namespace

QByteArray templateJson(const Template& t) {
    QJsonArray areas;
    for (int i = 1; i <= t.AreaCount(); ++i)
        areas.append(areaJson(t, i));
    const QJsonObject root = {
        {QStringLiteral("file"), t.TemplateFileName},
        {QStringLiteral("FormatVersion"), t.FormatVersion},
        {QStringLiteral("FormatRevision"), t.FormatRevision},
        {QStringLiteral("FitxGraf"), t.FitxGraf},
        {QStringLiteral("AreaCount"), t.AreaCount()},
        {QStringLiteral("Ordres"), t.Ordres},
        {QStringLiteral("PlantOption"), t.PlantOption},
        {QStringLiteral("FitxClip"), t.FitxClip},
        {QStringLiteral("Tecles"), t.Tecles},
        {QStringLiteral("FitxDoc"), t.FitxDoc},
        {QStringLiteral("TxFinestra"), t.TxFinestra},
        {QStringLiteral("descripcio"), t.descripcio},
        {QStringLiteral("PageCount"), t.PageCount},
        {QStringLiteral("SoundActive"), t.SoundActive},
        {QStringLiteral("HeaderFlag"), t.HeaderFlag},
        {QStringLiteral("sv_idioma"), t.sv_idioma},
        {QStringLiteral("sv_locutor"), t.sv_locutor},
        {QStringLiteral("SV_velocitat"), t.SV_velocitat},
        {QStringLiteral("Areas"), areas},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

} // namespace mervak::cli
