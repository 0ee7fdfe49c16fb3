// SPDX-License-Identifier: GPL-3.0-or-later
// What most sources of the windows include besides.
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
