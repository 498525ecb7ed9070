#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

/// Runs the built program as a user does, with a shell between, in a folder of its own.
class ToolRun : public testing::Test {
protected:
    struct Answer {
        int code;
        std::string out;
        std::string err;
    };

    static std::string quoted(std::string const & text) { return "'" + text + "'"; }

    std::string pathOf(char const * name) const { return folder.filePath(QString::fromUtf8(name)).toStdString(); }

    std::string contentOf(char const * name) const {
        QFile file(QString::fromStdString(pathOf(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll().toStdString();
    }

    /// Makes a file; its path.
    std::string write(char const * name, std::string const & text) const {
        QFile file(QString::fromStdString(pathOf(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        file.write(QByteArray::fromStdString(text));
        return pathOf(name);
    }

    Answer shell(std::string const & command) const {
        std::string const whole = command + " >" + quoted(pathOf("out")) + " 2>" + quoted(pathOf("err"));
        int const status = std::system(whole.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf("out"), contentOf("err")};
    }

    Answer run(std::vector<std::string> const & arguments) const {
        std::string command = quoted(VX_TOOL);
        for (std::string const & argument : arguments)
            command += " " + quoted(argument);
        return shell(command);
    }

    static QJsonDocument json(std::string const & text) {
        QJsonParseError error;
        QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << text;
        return document;
    }

    QTemporaryDir folder;
};
