#include "platform/Checked16.h"
#include "template/LegacyKeyTable.h"
#include "template/MvdFormat.h"

namespace mervak {

namespace {

struct FormatFailure {
    int record;
};

unsigned char byteAt(const QByteArray& bytes, qsizetype i) {
    return static_cast<unsigned char>(bytes[i]);
}

QString decodeKeyText(const QByteArray& bytes, qsizetype start) {
    QString text;
    for (int i = 0; i < Mvd::kKeyTextSize; ++i) {
        const unsigned char code = byteAt(bytes, start + i);
        if (code != 0) {
            text += legacyKeyText(code);
            continue;
        }
        if (i + 1 == Mvd::kKeyTextSize || byteAt(bytes, start + i + 1) == 0)
            break;
        text += QStringLiteral("{|Pagina ") + QString::number(byteAt(bytes, start + ++i)) + u'}';
    }
    return text;
}

Area decodeArea(const QByteArray& bytes, qsizetype start, int record) {
    Area a;
    a.X0 = byteAt(bytes, start);
    a.Y0 = byteAt(bytes, start + 1);
    a.X1 = byteAt(bytes, start + 2);
    a.Y1 = byteAt(bytes, start + 3);
    a.Page = byteAt(bytes, start + 4);
    if (a.Page == 0)
        throw FormatFailure{record};
    a.ActionText = decodeKeyText(bytes, start + Mvd::kKeyTextStart);
    return a;
}

} // namespace

std::optional<TemplateError> readMvd(const QByteArray& bytes, Template& t) {
    const auto failure = [](int record) {
        return TemplateError{TemplateMessage::WrongFormat, {}, record, {}};
    };
    if (bytes.isEmpty())
        return failure(0);
    if (bytes.size() % Mvd::kRecordSize != 0)
        return failure(static_cast<int>(bytes.size() / Mvd::kRecordSize) + 1);
    const qsizetype records = bytes.size() / Mvd::kRecordSize;
    int headerRecord = 0;
    int record = 0;
    try {
        t.reserveAreas(records);
        for (qsizetype start = 0; start < bytes.size(); start += Mvd::kRecordSize) {
            ++record;
            if (byteAt(bytes, start) != Mvd::kHeaderMark) {
                t.AppendArea(decodeArea(bytes, start, record));
                continue;
            }
            if (headerRecord != 0 || byteAt(bytes, start + 3) == 0)
                return failure(record);
            headerRecord = record;
            t.PageCount = byteAt(bytes, start + 3);
        }
    } catch (const FormatFailure& e) {
        return failure(e.record);
    } catch (const Overflow16&) {
        return failure(record);
    }
    if (headerRecord == 0)
        return failure(0);
    return std::nullopt;
}

} // namespace mervak
