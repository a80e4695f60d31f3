#include "openboard/ZipArchive.h"

#include <memory>
#include <zip.h>

namespace mervak {

namespace {

struct ArchiveCloser {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Archive = std::unique_ptr<zip_t, ArchiveCloser>;

struct FileCloser {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

struct SourceFree {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};
using Source = std::unique_ptr<zip_source_t, SourceFree>;

void say(QString* error, const QString& text) {
    if (error)
        *error = text;
}

QString reason(zip_error_t* zipError) {
    return QString::fromLocal8Bit(zip_error_strerror(zipError));
}

std::optional<QByteArray> readEntry(zip_t* archive, zip_uint64_t index, const zip_stat_t& stat,
                                    QString* error) {
    if (static_cast<qint64>(stat.size) > kMaxZipEntryBytes) {
        say(error, QStringLiteral("%1: %2 bytes").arg(QString::fromUtf8(stat.name)).arg(stat.size));
        return std::nullopt;
    }
    std::unique_ptr<zip_file_t, FileCloser> file(zip_fopen_index(archive, index, 0));
    if (!file) {
        say(error, QString::fromLocal8Bit(zip_strerror(archive)));
        return std::nullopt;
    }
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_fread(file.get(), bytes.data(), stat.size);
    if (read < 0 || static_cast<zip_uint64_t>(read) != stat.size) {
        say(error, QString::fromLocal8Bit(zip_file_strerror(file.get())));
        return std::nullopt;
    }
    return bytes;
}

} // namespace

std::optional<ZipEntries> readZip(const QByteArray& bytes, QString* error) {
    zip_error_t zipError;
    zip_error_init(&zipError);
    zip_source_t* source = zip_source_buffer_create(
        bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, &zipError);
    // Once opened, the archive owns the source.
    zip_t* opened = source ? zip_open_from_source(source, ZIP_RDONLY, &zipError) : nullptr;
    if (!opened) {
        zip_source_free(source);
        say(error, reason(&zipError));
        zip_error_fini(&zipError);
        return std::nullopt;
    }
    zip_error_fini(&zipError);
    const Archive archive(opened);
    ZipEntries entries;
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t stat;
        if (zip_stat_index(archive.get(), index, 0, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE) ||
            !(stat.valid & ZIP_STAT_NAME)) {
            say(error, QString::fromLocal8Bit(zip_strerror(archive.get())));
            return std::nullopt;
        }
        const QString name = QString::fromUtf8(stat.name);
        if (name.endsWith(u'/'))
            continue;
        auto data = readEntry(archive.get(), index, stat, error);
        if (!data)
            return std::nullopt;
        entries.insert(name, *data);
    }
    return entries;
}

std::optional<QByteArray> writeZip(const ZipEntries& entries, QString* error) {
    zip_error_t zipError;
    zip_error_init(&zipError);
    Source buffer(zip_source_buffer_create(nullptr, 0, 0, &zipError));
    zip_t* archive = buffer ? zip_open_from_source(buffer.get(), ZIP_TRUNCATE, &zipError) : nullptr;
    if (!archive) {
        say(error, reason(&zipError));
        zip_error_fini(&zipError);
        return std::nullopt;
    }
    zip_error_fini(&zipError);
    // The buffer outlives the archive's close, which writes into it.
    zip_source_keep(buffer.get());
    const auto fail = [archive, error] {
        say(error, QString::fromLocal8Bit(zip_strerror(archive)));
        zip_discard(archive);
        return std::nullopt;
    };
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        zip_source_t* data = zip_source_buffer(archive, it.value().constData(),
                                               static_cast<zip_uint64_t>(it.value().size()), 0);
        if (!data)
            return fail();
        if (zip_file_add(archive, it.key().toUtf8().constData(), data,
                         ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE) < 0) {
            zip_source_free(data);
            return fail();
        }
    }
    if (zip_close(archive) != 0)
        return fail();
    zip_stat_t stat;
    if (zip_source_stat(buffer.get(), &stat) != 0 || zip_source_open(buffer.get()) != 0) {
        say(error, QStringLiteral("zip"));
        return std::nullopt;
    }
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_source_read(buffer.get(), bytes.data(), stat.size);
    zip_source_close(buffer.get());
    if (read < 0 || static_cast<zip_uint64_t>(read) != stat.size) {
        say(error, QStringLiteral("zip"));
        return std::nullopt;
    }
    return bytes;
}

} // namespace mervak
