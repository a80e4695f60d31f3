#include "template/LegacyKeyTable.h"
#include "template/MvdFormat.h"

#include <QHash>
#include <QRegularExpression>
#include <limits>
#include <vector>

namespace mervak {

namespace {

// One piece of an ActionText as the encoder chose it.
struct Piece {
    qsizetype length = 0;
    QByteArray bytes; // empty: the piece has no key code
};

class KeyTextEncoder {
public:
    KeyTextEncoder() {
        for (int code = 255; code >= 1; --code) {
            const QString& text = legacyKeyText(code);
            codes_.insert(text, static_cast<char>(code));
            longest_ = qMax(longest_, text.size());
        }
    }

    // The cheapest split of `text` into pieces: fewest characters without a
    // code first, then fewest bytes.
    std::vector<Piece> encode(const QString& text) const {
        const qsizetype n = text.size();
        std::vector<long long> cost(n + 1, 0);
        std::vector<Piece> choice(n + 1);
        for (qsizetype i = n - 1; i >= 0; --i) {
            cost[i] = std::numeric_limits<long long>::max();
            for (Piece& candidate : candidates(text, i)) {
                const long long c = (candidate.bytes.isEmpty() ? kUncoded * candidate.length
                                                               : candidate.bytes.size()) +
                                    cost[i + candidate.length];
                if (c < cost[i]) {
                    cost[i] = c;
                    choice[i] = std::move(candidate);
                }
            }
        }
        std::vector<Piece> pieces;
        for (qsizetype i = 0; i < n; i += choice[i].length)
            pieces.push_back(choice[i]);
        return pieces;
    }

private:
    static constexpr long long kUncoded = 1000;

    std::vector<Piece> candidates(const QString& text, qsizetype i) const {
        std::vector<Piece> found;
        if (Piece page = pageBlock(text, i); page.length > 0) {
            found.push_back(std::move(page));
        }
        for (qsizetype len = 1; len <= longest_ && i + len <= text.size(); ++len) {
            const auto it = codes_.constFind(text.mid(i, len));
            if (it != codes_.cend())
                found.push_back({len, QByteArray(1, it.value())});
        }
        found.push_back({uncodedLength(text, i), {}});
        return found;
    }

    // "{|Pagina n}" with n in 1..255 written without leading zeros.
    static Piece pageBlock(const QString& text, qsizetype i) {
        if (!QStringView(text).sliced(i).startsWith(u"{|Pagina "))
            return {};
        static const QRegularExpression pattern(
            QStringLiteral("\\{\\|Pagina ([1-9][0-9]{0,2})\\}"));
        const auto match = pattern.match(text, i, QRegularExpression::NormalMatch,
                                         QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch() || match.captured(1).toInt() > 255)
            return {};
        QByteArray bytes(2, '\0');
        bytes[1] = static_cast<char>(match.captured(1).toInt());
        return {match.capturedLength(), bytes};
    }

    // What is left out when no code starts at `i`: a whole braced group (a
    // command block up to its matching brace), else one character.
    static qsizetype uncodedLength(const QString& text, qsizetype i) {
        if (text[i] != u'{')
            return 1;
        if (i + 1 < text.size() && text[i + 1] == u'|')
            return blockEnd(text, i) - i;
        const qsizetype close = text.indexOf(u'}', i + 2);
        return close < 0 ? text.size() - i : close + 1 - i;
    }

    // Just past the "}" that closes the block opened at `open`, braces counted.
    static qsizetype blockEnd(const QString& text, qsizetype open) {
        int depth = 0;
        for (qsizetype k = open; k < text.size(); ++k) {
            if (text[k] == u'{')
                ++depth;
            else if (text[k] == u'}' && --depth == 0)
                return k + 1;
        }
        return text.size();
    }

    QHash<QString, char> codes_;
    qsizetype longest_ = 0;
};

const KeyTextEncoder& encoder() {
    static const KeyTextEncoder instance;
    return instance;
}

class MvdBuilder {
public:
    explicit MvdBuilder(const Template& t) : t_(t) {}

    MvdExport build() {
        reportHeader();
        appendHeaderRecord();
        for (int i = 1; i <= t_.AreaCount(); ++i)
            appendArea(i, t_.area(i));
        return std::move(result_);
    }

private:
    void lose(MvdLoss::Kind kind, int16_t area, const QString& text = {}) {
        result_.losses.append({kind, area, text});
    }

    bool hasCells() const {
        for (int i = 1; i <= t_.AreaCount(); ++i)
            if (t_.area(i).Cell)
                return true;
        return false;
    }

    void reportHeader() {
        const std::pair<const char*, bool> fields[] = {
            {"FitxGraf", !t_.FitxGraf.isEmpty()},       {"Ordres", !t_.Ordres.isEmpty()},
            {"PlantOption", t_.PlantOption != 0},       {"FitxClip", !t_.FitxClip.isEmpty()},
            {"Tecles", !t_.Tecles.isEmpty()},           {"FitxDoc", !t_.FitxDoc.isEmpty()},
            {"TxFinestra", !t_.TxFinestra.isEmpty()},   {"descripcio", !t_.descripcio.isEmpty()},
            {"SoundActive", t_.SoundActive != 0},       {"HeaderFlag", t_.HeaderFlag != 0},
            {"sv_idioma", t_.sv_idioma != 0},           {"sv_locutor", t_.sv_locutor != 0},
            {"SV_velocitat", t_.SV_velocitat != 0},     {"MidaLamina", !t_.hasTabletSheetSize()},
            {"FonsPagina", !t_.PagePictures.isEmpty()}, {"Cella", hasCells()},
        };
        for (const auto& [name, present] : fields)
            if (present)
                lose(MvdLoss::Kind::HeaderField, 0, QLatin1String(name));
    }

    void appendHeaderRecord() {
        QByteArray record(Mvd::kRecordSize, '\0');
        record[0] = static_cast<char>(Mvd::kHeaderMark);
        int16_t pages = t_.PageCount;
        if (pages < 1 || pages > 255) {
            lose(MvdLoss::Kind::PageCountCut, 0, QString::number(pages));
            pages = static_cast<int16_t>(qBound(1, static_cast<int>(pages), 255));
        }
        record[3] = static_cast<char>(pages);
        result_.bytes += record;
    }

    char coordinate(int16_t index, const char* name, int16_t value, int highest) {
        if (value < 0 || value > highest) {
            lose(MvdLoss::Kind::CoordinateCut, index,
                 QLatin1String(name) + u'=' + QString::number(value));
            value = static_cast<int16_t>(qBound(0, static_cast<int>(value), highest));
        }
        return static_cast<char>(value);
    }

    void appendArea(int16_t index, const Area& a) {
        if (a.Page < 1 || a.Page > 255) {
            lose(MvdLoss::Kind::PageOutOfRange, index, QString::number(a.Page));
            return;
        }
        if (a.ClipFlag != 0 || !a.Clip.isEmpty() || a.Flags != 0)
            lose(MvdLoss::Kind::ClipNotStored, index);
        QByteArray record(Mvd::kRecordSize, '\0');
        record[0] = coordinate(index, "X0", a.X0, 254);
        record[1] = coordinate(index, "Y0", a.Y0, 255);
        record[2] = coordinate(index, "X1", a.X1, 255);
        record[3] = coordinate(index, "Y1", a.Y1, 255);
        record[4] = static_cast<char>(a.Page);
        record.replace(Mvd::kKeyTextStart, Mvd::kKeyTextSize, keyText(index, a.ActionText));
        result_.bytes += record;
    }

    QByteArray keyText(int16_t index, const QString& text) {
        QByteArray bytes;
        QString uncoded;
        qsizetype at = 0;
        for (const Piece& piece : encoder().encode(text)) {
            if (bytes.size() + piece.bytes.size() > Mvd::kKeyTextSize) {
                flushUncoded(index, uncoded);
                lose(MvdLoss::Kind::KeyTextCut, index, text.mid(at));
                break;
            }
            if (piece.bytes.isEmpty()) {
                uncoded += text.mid(at, piece.length);
            } else {
                flushUncoded(index, uncoded);
                bytes += piece.bytes;
            }
            at += piece.length;
        }
        flushUncoded(index, uncoded);
        bytes.append(QByteArray(Mvd::kKeyTextSize - bytes.size(), '\0'));
        return bytes;
    }

    void flushUncoded(int16_t index, QString& uncoded) {
        if (!uncoded.isEmpty())
            lose(MvdLoss::Kind::KeysNotStored, index, uncoded);
        uncoded.clear();
    }

    const Template& t_;
    MvdExport result_;
};

} // namespace

MvdExport writeMvd(const Template& t) {
    return MvdBuilder(t).build();
}

} // namespace mervak
