#pragma once
// What the spreadsheet tests share: Debian's Python with openpyxl, to make and read files the way
// another program does, and a child process that runs a writer as another user or on a small disk.
#include "support/printers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>

// Runs `script` with Debian's python3 (openpyxl is in its packages), argv[1..] = args; its standard output.
inline QByteArray runPython(const QString& script, const QStringList& args = {}) {
    QProcess p;
    p.start(QStringLiteral("/usr/bin/python3"), QStringList{QStringLiteral("-c"), script} + args);
    if (!p.waitForFinished(60000) || p.exitCode() != 0) {
        ADD_FAILURE() << "python: " << p.readAllStandardError().toStdString();
        return {};
    }
    return p.readAllStandardOutput();
}

// Every cell of every sheet as openpyxl reads it: {"Sheet": [[[kind, value, format, bold], ...], ...]},
// kind one of "s" (text), "n" (number), "d" (date, value "yyyy-mm-dd"), "" (empty).
inline QJsonObject readWithOpenpyxl(const QString& path) {
    static const QString script = QStringLiteral(R"(
import json, sys, datetime, openpyxl
wb = openpyxl.load_workbook(sys.argv[1])
out = {}
for ws in wb.worksheets:
    rows = []
    for row in ws.iter_rows():
        cells = []
        for c in row:
            v = c.value
            if v is None: k, v = "", ""
            elif isinstance(v, str): k = "s"
            elif isinstance(v, (datetime.datetime, datetime.date)): k, v = "d", v.strftime("%Y-%m-%d")
            elif isinstance(v, bool): k, v = "b", str(v)
            else: k = "n"
            cells.append([k, v, c.number_format, bool(c.font.b)])
        rows.append(cells)
    out[ws.title] = rows
print(json.dumps(out))
)");
    return QJsonDocument::fromJson(runPython(script, {path})).object();
}

// The same read by odfpy from an ODS file (format and boldness left empty): another program's reading
// of the white space, the value types and the values.
inline QJsonObject readWithOdfpy(const QString& path) {
    static const QString script = QStringLiteral(R"(
import json, sys
from odf.opendocument import load
from odf import table, text, teletype
doc = load(sys.argv[1])
out = {}
for t in doc.spreadsheet.getElementsByType(table.Table):
    rows = []
    for r in t.getElementsByType(table.TableRow):
        cells = []
        for c in r.getElementsByType(table.TableCell):
            vt = c.getAttribute("valuetype")
            if vt == "string": k, v = "s", "\n".join(teletype.extractText(p) for p in c.getElementsByType(text.P))
            elif vt in ("float", "percentage", "currency"): k, v = "n", float(c.getAttribute("value"))
            elif vt == "date": k, v = "d", c.getAttribute("datevalue")[:10]
            else: k, v = "", ""
            cells += [[k, v, "", False]] * int(c.getAttribute("numbercolumnsrepeated") or 1)
        rows.append(cells)
    out[t.getAttribute("name")] = rows
print(json.dumps(out))
)");
    return QJsonDocument::fromJson(runPython(script, {path})).object();
}

// What a child process reports back: the writer's error (number 0: none) and the names left in a folder.
struct ChildReport {
    int number = -1;
    QString description;
    QStringList left;
    QByteArray target;   // the target file's bytes after the write
};

// Runs `write` in a forked child that first calls `prepare` (drop to another user, mount a small disk):
// the parent stays as it was. The child lists the target's folder after the write and reads the target.
ChildReport runInChild(const std::function<void()>& prepare, const std::function<void()>& write, const QString& target);
