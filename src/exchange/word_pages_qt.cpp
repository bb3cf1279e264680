#include "exchange/word_pages_qt.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"
#include "display/word_picture_qt.h"
#include "print/word_picture.h"
#include "translit/unicode_translit.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

#include <sqlite3.h>
#include <zip.h>

#include <filesystem>
#include <map>
#include <memory>

namespace nebkaro {

namespace {

WordPicture pictureOf(SignPictures& pictures, const WordRecord& word) {
    try {
        return print::pictureOfRecord(pictures, word);
    } catch (const RunError&) {
        // A layout that cannot be read shows as the bare margin rather than stopping the export.
        return {};
    }
}

// Each sign picture once, as a PNG in base64, under an id the words refer to.
class SignDefinitions {
public:
    // The id of the picture, or empty when it cannot be read.
    std::string idOf(const SignPicture& p) {
        if (!p.ok) return {};
        const std::string file = p.file.string();
        auto it = ids_.find(file);
        if (it != ids_.end()) return it->second;
        QImage image(QString::fromStdString(file));
        std::string id;
        if (!image.isNull()) {
            id = "s" + std::to_string(ids_.size());
            QByteArray png;
            QBuffer buffer(&png);
            buffer.open(QIODevice::WriteOnly);
            image.save(&buffer, "PNG");
            defs_ += "<image id=\"" + id + "\" width=\"" + std::to_string(image.width()) +
                     "\" height=\"" + std::to_string(image.height()) +
                     "\" href=\"data:image/png;base64," + png.toBase64().toStdString() + "\"/>\n";
        }
        ids_.emplace(file, id);
        return id;
    }
    const std::string& defs() const { return defs_; }

private:
    std::map<std::string, std::string> ids_;
    std::string defs_;
};

std::string wordSvg(const WordPicture& picture, SignDefinitions& defs) {
    const int w = std::max(1, twipsToPixels(picture.width));
    const int h = std::max(1, twipsToPixels(picture.height));
    std::string svg = "<svg class=\"word\" width=\"" + std::to_string(w) + "\" height=\"" +
                      std::to_string(h) + "\" viewBox=\"0 0 " + std::to_string(w) + " " +
                      std::to_string(h) + "\">";
    for (const PlacedPicture& p : picture.pictures) {
        const int x = twipsToPixels(p.x), y = twipsToPixels(p.y);
        const std::string id = defs.idOf(p.picture);
        if (id.empty()) {
            svg += "<rect x=\"" + std::to_string(x) + ".5\" y=\"" + std::to_string(y) +
                   ".5\" width=\"" + std::to_string(twipsToPixels(p.picture.width) - 1) +
                   "\" height=\"" + std::to_string(twipsToPixels(p.picture.height) - 1) +
                   "\" fill=\"none\" stroke=\"#808080\"/>";
        } else {
            svg += "<use href=\"#" + id + "\" x=\"" + std::to_string(x) + "\" y=\"" +
                   std::to_string(y) + "\"/>";
        }
    }
    return svg + "</svg>";
}

} // namespace

std::string deckName(const std::string& dictionaryName) {
    const std::string stem = std::filesystem::path(dictionaryName).stem().string();
    return stem.empty() ? std::string("Nebkaro") : stem;
}

std::string exportHtml(App& app, const std::vector<int>& words, const std::string& title) {
    print::CachedSignPictures pictures(app.pictures);
    SignDefinitions defs;
    std::string rows;
    for (int w : words) {
        const WordRecord& word = app.store.row(w);
        rows += "<tr><td class=\"n\">" + std::to_string(w) + "</td><td class=\"pic\">" +
                wordSvg(pictureOf(pictures, word), defs) + "</td><td class=\"tr\">" +
                text::escapeHtml(scholarlyFromPlain(word[FieldTranslit])) + "</td><td>" +
                text::escapeHtml(word[FieldMeaning]) + "</td><td class=\"gard\">" +
                text::escapeHtml(word[FieldGardiner]) + "</td><td>" +
                text::escapeHtml(word[FieldComment]) + "</td></tr>\n";
    }
    const std::string t = text::escapeHtml(title);
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + t +
           "</title>\n<style>\n"
           "body { font-family: 'DejaVu Sans', sans-serif; margin: 2em; }\n"
           "h1 { font-size: 1.4em; }\n"
           "table { border-collapse: collapse; }\n"
           "th, td { border-bottom: 1px solid #ccc; padding: 4px 10px; text-align: left; "
           "vertical-align: middle; }\n"
           "thead { display: table-header-group; }\n"
           "tr { break-inside: avoid; }\n"
           "td.n { color: #888; text-align: right; }\n"
           "td.tr { color: #00c; font-style: italic; }\n"
           "td.gard { font-family: monospace; }\n"
           "svg.word { display: block; }\n"
           "</style>\n</head>\n<body>\n<h1>" +
           t + "</h1>\n<p>" + std::to_string(words.size()) +
           (words.size() == 1 ? " word" : " words") +
           "</p>\n<table>\n<thead><tr><th>No.</th><th>Word</th>"
           "<th>Transliteration</th><th>Meaning</th><th>Gardiner</th><th>Comment</th></tr>"
           "</thead>\n<tbody>\n" +
           rows +
           "</tbody>\n</table>\n"
           "<svg width=\"0\" height=\"0\" style=\"position:absolute\" "
           "aria-hidden=\"true\"><defs>\n" +
           defs.defs() + "</defs></svg>\n</body>\n</html>\n";
}

} // namespace nebkaro

namespace nebkaro {

namespace {

// The collection schema Anki's importer reads (version 11 of its collection).
constexpr const char* CollectionSchema = R"(
CREATE TABLE col (id integer primary key, crt integer not null, mod integer not null,
  scm integer not null, ver integer not null, dty integer not null, usn integer not null,
  ls integer not null, conf text not null, models text not null, decks text not null,
  dconf text not null, tags text not null);
CREATE TABLE notes (id integer primary key, guid text not null, mid integer not null,
  mod integer not null, usn integer not null, tags text not null, flds text not null,
  sfld integer not null, csum integer not null, flags integer not null, data text not null);
CREATE TABLE cards (id integer primary key, nid integer not null, did integer not null,
  ord integer not null, mod integer not null, usn integer not null, type integer not null,
  queue integer not null, due integer not null, ivl integer not null, factor integer not null,
  reps integer not null, lapses integer not null, left integer not null, odue integer not null,
  odid integer not null, flags integer not null, data text not null);
CREATE TABLE revlog (id integer primary key, cid integer not null, usn integer not null,
  ease integer not null, ivl integer not null, lastIvl integer not null,
  factor integer not null, time integer not null, type integer not null);
CREATE TABLE graves (usn integer not null, oid integer not null, type integer not null);
CREATE INDEX ix_notes_usn on notes (usn);
CREATE INDEX ix_cards_usn on cards (usn);
CREATE INDEX ix_revlog_usn on revlog (usn);
CREATE INDEX ix_cards_nid on cards (nid);
CREATE INDEX ix_cards_sched on cards (did, queue, due);
CREATE INDEX ix_revlog_cid on revlog (cid);
CREATE INDEX ix_notes_csum on notes (csum);
)";

[[noreturn]] void fail(const std::string& what) {
    throw RunError(PathFileAccess, "The flash cards could not be made: " + what);
}

struct Database {
    sqlite3* db = nullptr;
    Database() {
        if (sqlite3_open(":memory:", &db) != SQLITE_OK) fail("no database");
    }
    ~Database() { sqlite3_close(db); }
    void exec(const char* sql) {
        char* error = nullptr;
        if (sqlite3_exec(db, sql, nullptr, nullptr, &error) != SQLITE_OK) {
            const std::string message = error ? error : "?";
            sqlite3_free(error);
            fail(message);
        }
    }
};

struct Statement {
    sqlite3_stmt* s = nullptr;
    Statement(Database& d, const char* sql) {
        if (sqlite3_prepare_v2(d.db, sql, -1, &s, nullptr) != SQLITE_OK) fail(sqlite3_errmsg(d.db));
    }
    ~Statement() { sqlite3_finalize(s); }
    Statement& bind(int i, std::int64_t v) {
        sqlite3_bind_int64(s, i, v);
        return *this;
    }
    Statement& bind(int i, const std::string& v) {
        sqlite3_bind_text(s, i, v.c_str(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
        return *this;
    }
    void run() {
        if (sqlite3_step(s) != SQLITE_DONE) fail(sqlite3_errmsg(sqlite3_db_handle(s)));
        sqlite3_reset(s);
        sqlite3_clear_bindings(s);
    }
};

std::string json(const QJsonObject& o) {
    return QJsonDocument(o).toJson(QJsonDocument::Compact).toStdString();
}

QJsonObject field(const char* name, int ord) {
    return {{"name", name},          {"ord", ord}, {"sticky", false},      {"rtl", false},
            {"font", "DejaVu Sans"}, {"size", 20}, {"media", QJsonArray()}};
}

QJsonObject cardTemplate(const char* name, int ord, const char* front, const char* back) {
    return {{"name", name},        {"ord", ord},  {"qfmt", front}, {"afmt", back},
            {"did", QJsonValue()}, {"bqfmt", ""}, {"bafmt", ""}};
}

QJsonObject model(qint64 id, qint64 deck, qint64 seconds) {
    const char* answer = "<div class=\"tr\">{{Transliteration}}</div>"
                         "<div class=\"meaning\">{{Meaning}}</div>"
                         "<div class=\"comment\">{{Comment}}</div>"
                         "<div class=\"gard\">{{Gardiner}}</div>";
    const std::string pictureToMeaning = std::string("{{FrontSide}}<hr id=\"answer\">") + answer;
    const std::string meaningToPicture =
        "{{FrontSide}}<hr id=\"answer\"><div class=\"picture\">{{Picture}}</div>"
        "<div class=\"tr\">{{Transliteration}}</div><div class=\"comment\">{{Comment}}</div>";
    QJsonArray fields;
    int ord = 0;
    for (const char* name : {"Transliteration", "Picture", "Meaning", "Comment", "Gardiner"})
        fields.append(field(name, ord++));
    QJsonArray templates;
    templates.append(cardTemplate("Picture to meaning", 0,
                                  "<div class=\"picture\">{{Picture}}</div>",
                                  pictureToMeaning.c_str()));
    templates.append(cardTemplate("Meaning to picture", 1,
                                  "<div class=\"meaning\">{{Meaning}}</div>",
                                  meaningToPicture.c_str()));
    QJsonArray req;
    req.append(QJsonArray{0, "all", QJsonArray{1}});
    req.append(QJsonArray{1, "all", QJsonArray{2}});
    return {{"id", id},
            {"name", "Nebkaro word"},
            {"type", 0},
            {"mod", seconds},
            {"usn", -1},
            {"sortf", 0},
            {"did", deck},
            {"tmpls", templates},
            {"flds", fields},
            {"css", ".card { font-family: 'DejaVu Sans', sans-serif; font-size: 22px; "
                    "text-align: center; }\n.tr { color: #00c; font-style: italic; }\n"
                    ".comment, .gard { font-size: 16px; color: #555; }\n"
                    ".picture img { max-width: 100%; }\n"},
            {"latexPre", "\\documentclass[12pt]{article}\n\\begin{document}\n"},
            {"latexPost", "\\end{document}"},
            {"tags", QJsonArray()},
            {"vers", QJsonArray()},
            {"req", req}};
}

QJsonObject deck(qint64 id, const std::string& name, qint64 seconds) {
    return {{"id", id},
            {"name", QString::fromStdString(name)},
            {"mod", seconds},
            {"usn", -1},
            {"lrnToday", QJsonArray{0, 0}},
            {"revToday", QJsonArray{0, 0}},
            {"newToday", QJsonArray{0, 0}},
            {"timeToday", QJsonArray{0, 0}},
            {"collapsed", false},
            {"browserCollapsed", false},
            {"desc", ""},
            {"dyn", 0},
            {"conf", 1},
            {"extendNew", 10},
            {"extendRev", 50}};
}

QJsonObject deckOptions() {
    return {{"id", 1},
            {"name", "Default"},
            {"mod", 0},
            {"usn", 0},
            {"maxTaken", 60},
            {"autoplay", true},
            {"timer", 0},
            {"replayq", true},
            {"dyn", false},
            {"new", QJsonObject{{"bury", true},
                                {"delays", QJsonArray{1, 10}},
                                {"initialFactor", 2500},
                                {"ints", QJsonArray{1, 4, 7}},
                                {"order", 1},
                                {"perDay", 20},
                                {"separate", true}}},
            {"rev", QJsonObject{{"bury", true},
                                {"ease4", 1.3},
                                {"fuzz", 0.05},
                                {"ivlFct", 1},
                                {"maxIvl", 36500},
                                {"minSpace", 1},
                                {"perDay", 200}}},
            {"lapse", QJsonObject{{"delays", QJsonArray{10}},
                                  {"leechAction", 0},
                                  {"leechFails", 8},
                                  {"minInt", 1},
                                  {"mult", 0}}}};
}

// The first eight hex digits of the SHA-1 of the text, as Anki finds duplicates by.
std::int64_t checksum(const std::string& text) {
    const QByteArray sha =
        QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Sha1);
    return static_cast<std::int64_t>(sha.toHex().left(8).toULongLong(nullptr, 16));
}

// A stable identifier for a note: the same word in the same deck keeps its identity, so a
// deck exported again updates the cards already learnt instead of doubling them.
std::string noteGuid(const std::string& deckName, const WordRecord& word) {
    std::string key = deckName;
    for (const std::string& f : word) key += '\x1f' + f;
    return QCryptographicHash::hash(QByteArray::fromStdString(key), QCryptographicHash::Sha1)
        .toBase64(QByteArray::OmitTrailingEquals)
        .left(10)
        .toStdString();
}

QByteArray pictureAt2x(const WordPicture& picture) {
    const QImage one = wordPictureImage(picture);
    QImage two(one.size() * 2, QImage::Format_RGB32);
    two.fill(Qt::white);
    QPainter painter(&two);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(2, 2);
    paintWordPicture(painter, picture);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    two.save(&buffer, "PNG");
    return png;
}

class Zip {
public:
    Zip() {
        zip_error_t error;
        zip_error_init(&error);
        source_ = zip_source_buffer_create(nullptr, 0, 0, &error);
        if (!source_) fail("no zip buffer");
        zip_source_keep(source_);
        zip_ = zip_open_from_source(source_, ZIP_TRUNCATE, &error);
        if (!zip_) fail(zip_error_strerror(&error));
    }
    ~Zip() {
        if (zip_) zip_discard(zip_);
        zip_source_free(source_);
    }
    void add(const std::string& name, std::string bytes) {
        stored_.push_back(std::make_unique<std::string>(std::move(bytes)));
        const std::string& b = *stored_.back();
        zip_source_t* s = zip_source_buffer(zip_, b.data(), b.size(), 0);
        if (!s || zip_file_add(zip_, name.c_str(), s, ZIP_FL_ENC_UTF_8) < 0) {
            if (s) zip_source_free(s);
            fail(zip_strerror(zip_));
        }
    }
    std::string bytes() {
        if (zip_close(zip_) < 0) fail(zip_strerror(zip_));
        zip_ = nullptr;
        if (zip_source_open(source_) < 0) fail("the zip cannot be read back");
        zip_source_seek(source_, 0, SEEK_END);
        const zip_int64_t size = zip_source_tell(source_);
        zip_source_seek(source_, 0, SEEK_SET);
        std::string out(static_cast<std::size_t>(size), '\0');
        if (zip_source_read(source_, out.data(), static_cast<zip_uint64_t>(size)) != size)
            fail("the zip cannot be read back");
        zip_source_close(source_);
        return out;
    }

private:
    zip_source_t* source_ = nullptr;
    zip_t* zip_ = nullptr;
    // libzip reads the buffers when the archive is closed.
    std::vector<std::unique_ptr<std::string>> stored_;
};

} // namespace

std::string exportFlashCards(App& app, const std::vector<int>& words, const std::string& deckName,
                             std::int64_t nowMs) {
    const qint64 seconds = nowMs / 1000;
    const qint64 deckId = nowMs;
    const qint64 modelId = nowMs + 1;
    Database db;
    db.exec(CollectionSchema);
    {
        QJsonObject models{{QString::number(modelId), model(modelId, deckId, seconds)}};
        QJsonObject defaultDeck = deck(1, "Default", seconds);
        QJsonObject decks{{"1", defaultDeck},
                          {QString::number(deckId), deck(deckId, deckName, seconds)}};
        QJsonObject conf{{"nextPos", static_cast<qint64>(words.size()) + 1},
                         {"estTimes", true},
                         {"activeDecks", QJsonArray{deckId}},
                         {"sortType", "noteFld"},
                         {"timeLim", 0},
                         {"sortBackwards", false},
                         {"addToCur", true},
                         {"curDeck", deckId},
                         {"newSpread", 0},
                         {"dueCounts", true},
                         {"curModel", modelId},
                         {"collapseTime", 1200}};
        Statement col(db, "INSERT INTO col VALUES (1, ?, ?, ?, 11, 0, 0, 0, ?, ?, ?, ?, '{}')");
        col.bind(1, seconds).bind(2, nowMs).bind(3, nowMs).bind(4, json(conf));
        col.bind(5, json(models)).bind(6, json(decks));
        col.bind(7, json(QJsonObject{{"1", deckOptions()}}));
        col.run();
    }

    print::CachedSignPictures pictures(app.pictures);
    Zip zip;
    QJsonObject media;
    db.exec("BEGIN");
    Statement note(db, "INSERT INTO notes VALUES (?, ?, ?, ?, -1, '', ?, ?, ?, 0, '')");
    Statement card(db, "INSERT INTO cards VALUES (?, ?, ?, ?, ?, -1, 0, 0, ?, 0, 0, 0, 0, 0, 0, "
                       "0, 0, '')");
    std::int64_t position = 0;
    for (int w : words) {
        const WordRecord& word = app.store.row(w);
        const std::string mediaName = "nebkaro-" + std::to_string(w) + ".png";
        const std::string mediaKey = std::to_string(position);
        zip.add(mediaKey, pictureAt2x(pictureOf(pictures, word)).toStdString());
        media.insert(QString::fromStdString(mediaKey), QString::fromStdString(mediaName));

        const std::string translit = text::escapeHtml(scholarlyFromPlain(word[FieldTranslit]));
        const std::string fields = translit + '\x1f' + "<img src=\"" + mediaName + "\">" + '\x1f' +
                                   text::escapeHtml(word[FieldMeaning]) + '\x1f' +
                                   text::escapeHtml(word[FieldComment]) + '\x1f' +
                                   text::escapeHtml(word[FieldGardiner]);
        const std::int64_t noteId = nowMs + position;
        note.bind(1, noteId).bind(2, noteGuid(deckName, word)).bind(3, modelId).bind(4, seconds);
        note.bind(5, fields).bind(6, translit).bind(7, checksum(translit));
        note.run();
        for (int ord = 0; ord < 2; ++ord) {
            card.bind(1, nowMs + 2 * position + ord).bind(2, noteId).bind(3, deckId).bind(4, ord);
            card.bind(5, seconds).bind(6, position + 1);
            card.run();
        }
        ++position;
    }
    db.exec("COMMIT");

    sqlite3_int64 size = 0;
    unsigned char* data = sqlite3_serialize(db.db, "main", &size, 0);
    if (!data) fail("the collection cannot be written");
    std::string collection(reinterpret_cast<const char*>(data), static_cast<std::size_t>(size));
    sqlite3_free(data);
    zip.add("collection.anki2", std::move(collection));
    zip.add("media", json(media));
    return zip.bytes();
}

} // namespace nebkaro
