#pragma once

#include "till/language/language.h"

#include <QByteArray>
#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>

/// The application that translations need; nothing is spoken at first.
class SilentApplication
{
private:
    int m_count = 1;
    QByteArray m_name = "test";
    std::array<char *, 2> m_arguments{m_name.data(), nullptr};
    QCoreApplication m_application{m_count, m_arguments.data()};
};

class SpeakingTest : public testing::Test
{
private:
    SilentApplication m_application;
};
