#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

/// Runs the built program as a user does: command lines in a shell, in a folder of its own.
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

    void write(char const * name, std::string const & text) const {
        QFile file(QString::fromStdString(pathOf(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        file.write(QByteArray::fromStdString(text));
    }

    /// Runs a command line, in which `vxproject` is the program.
    Answer shell(std::string const & command, std::string const & input = std::string()) const {
        write(".in", input);
        std::string const before = "cd " + quoted(folder.path().toStdString()) + " && export LC_ALL=C.UTF-8 PATH=" +
                                   quoted(QFileInfo(QStringLiteral(VX_TOOL)).path().toStdString()) + ":$PATH";
        int const status = std::system(("(" + before + "; " + command + "\n) <" + quoted(pathOf(".in")) + " >" +
                                        quoted(pathOf(".out")) + " 2>" + quoted(pathOf(".err")))
                                           .c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(".out"), contentOf(".err")};
    }

    /// The program with arguments as they would be typed.
    Answer run(std::string const & arguments) const { return shell("vxproject " + arguments); }

    /// Wrong usage: code 2 and words about it, and nothing else.
    void expectRefused(std::string const & arguments) const {
        Answer const answer = run(arguments);
        EXPECT_EQ(answer.code, 2) << arguments;
        EXPECT_EQ(answer.out, "") << arguments;
        EXPECT_NE(answer.err, "") << arguments;
    }

    QTemporaryDir folder;
};
