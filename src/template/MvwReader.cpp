#include "template/MvwReader.h"

#include "platform/Checked16.h"
#include "platform/TextEncoding.h"
#include "template/AreaRecord.h"

namespace mervak {

namespace {

// Lines 3 to 13, common to both versions; returns the stored area count.
int16_t readCommonHeader(FieldReader& in, Template& t) {
    t.FitxGraf = in.readBare();
    const int countLine = in.line();
    const int16_t count = in.readInteger();
    if (count < 0)
        throw FieldError{countLine};
    t.Ordres = in.readQuoted();
    t.PlantOption = in.readInteger();
    t.FitxClip = in.readQuoted();
    t.Tecles = in.readQuoted();
    t.FitxDoc = in.readQuoted();
    t.TxFinestra = in.readQuoted();
    t.descripcio = in.readQuoted();
    t.PageCount = in.readInteger();
    t.SoundActive = in.readInteger();
    return count;
}

void readExtraHeader(FieldReader& in, Template& t) {
    t.HeaderFlag = in.readInteger();
    t.sv_idioma = in.readInteger();
    t.sv_locutor = in.readInteger();
    t.SV_velocitat = in.readInteger();
}

void convertVersion1Clip(Area& a) {
    if (a.Clip.isEmpty())
        return;
    a.ActionText = QStringLiteral("{|Enganxa ") + a.Clip + u'}' + a.ActionText;
    a.ClipFlag = 0;
    a.Clip.clear();
}

void readAreas(FieldReader& in, Template& t, int16_t count, AreaRecordLayout layout, bool convert,
               qsizetype textSize) {
    // The shortest record takes about 30 characters: never reserve for more than can be there.
    t.reserveAreas(qMin<qsizetype>(count, textSize / 30 + 1));
    for (int16_t i = 0; i < count; ++i) {
        Area a = readAreaRecord(in, layout);
        if (convert)
            convertVersion1Clip(a);
        t.AppendArea(a);
    }
}

// What Mervak writes after the last record, each part opened by its tag: the
// sheet size when it is not the tablet's, and the Template's own scanning.
// Whatever else follows the records is ignored, as it always was.
void readTrailer(FieldReader& in, Template& t) {
    try {
        while (!in.atEnd()) {
            const QString tag = in.readQuoted();
            if (tag == sheetSizeTag()) {
                const int16_t width = in.readInteger();
                const int16_t height = in.readInteger();
                if (width > 0 && height > 0) {
                    t.SheetWidthMm = width;
                    t.SheetHeightMm = height;
                }
            } else if (tag == scanSettingsTag()) {
                t.Exploracio = in.readQuoted();
            } else {
                return;
            }
        }
    } catch (const FieldError&) {
    }
}

// Each layout reads the whole text again; `t` already holds what lines 1 and 2 said.
void readVersion2(QStringView text, Template& t) {
    FieldReader in(text);
    in.readInteger();
    in.readInteger();
    const int16_t count = readCommonHeader(in, t);
    readExtraHeader(in, t);
    readAreas(in, t, count, kRecordWithoutClipFlag, false, text.size());
    readTrailer(in, t);
}

void readSaveAsLayout(QStringView text, Template& t) {
    FieldReader in(text);
    in.readInteger();
    in.readInteger();
    const int16_t count = readCommonHeader(in, t);
    readAreas(in, t, count, kRecordWithClipFlag, false, text.size());
    readTrailer(in, t);
}

void readVersion1(FieldReader& in, Template& t, qsizetype textSize) {
    const int16_t count = readCommonHeader(in, t);
    readAreas(in, t, count, kRecordWithClipFlag, true, textSize);
    readTrailer(in, t);
}

void readVersion2OrSaveAs(QStringView text, Template& t) {
    const Template start = t;
    try {
        readVersion2(text, t);
    } catch (const FieldError& version2Failure) {
        // A "save as" file carries 2 on line 1 but 13 header lines and 9-line
        // records; the version 2 layout never reads such a file whole.
        Template saveAs = start;
        try {
            readSaveAsLayout(text, saveAs);
        } catch (const FieldError&) {
            throw version2Failure;
        }
        t = std::move(saveAs);
    }
}

} // namespace

std::optional<TemplateError> readMvw(const QByteArray& bytes, Template& t) {
    const QString text = decodeFileText(bytes).text;
    try {
        FieldReader in(text);
        const int16_t version = in.readInteger();
        const int16_t revision = in.readInteger();
        if (version > 2 || revision > 0)
            return TemplateError{TemplateMessage::NewerVersion, {}, 1, {}};
        if (version == 1) {
            t.FormatVersion = 1;
            t.FormatRevision = revision;
            readVersion1(in, t, text.size());
        } else if (version == 2) {
            t.FormatVersion = 2;
            t.FormatRevision = revision;
            readVersion2OrSaveAs(text, t);
        }
    } catch (const FieldError& e) {
        return TemplateError{TemplateMessage::ReadError, {}, e.line, {}};
    } catch (const Overflow16&) {
        return TemplateError{
            TemplateMessage::ReadError, {}, 0, QStringLiteral("more than 32767 areas")};
    }
    return std::nullopt;
}

} // namespace mervak
