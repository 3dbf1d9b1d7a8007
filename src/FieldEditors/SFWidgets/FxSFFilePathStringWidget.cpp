#include "FxSFFilePathStringWidget.h"

#include "ModalDialogs.h"

#include <SoSFFilePathString.h>

#include <QPushButton>

FxSFFilePathStringWidget::FxSFFilePathStringWidget(const char* name)
    : FxSFTextWidget(name, "FxSFFilePathStringWidget", SoSFFilePathString::getClassTypeId(),
                     "SFFilePathString")
{}

void FxSFFilePathStringWidget::createWidget()
{
    const bool built = lineEdit != nullptr;
    FxSFTextWidget::createWidget();
    if (built)
        return;
    openFileButton = new QPushButton(frame);
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    policy.setHorizontalStretch(0);
    policy.setVerticalStretch(0);
    policy.setHeightForWidth(openFileButton->sizePolicy().hasHeightForWidth());
    openFileButton->setSizePolicy(policy);
    openFileButton->setObjectName(QStringLiteral("openFileButton"));
    openFileButton->setText(QStringLiteral("..."));
    editLayout->addWidget(openFileButton, 2);
    connect(openFileButton, SIGNAL(clicked()), this, SLOT(openFileDialog()));
}

bool FxSFFilePathStringWidget::edited()
{
    return FxSFTextWidget::edited();
}

void FxSFFilePathStringWidget::openFileDialog()
{
    const QString path = ModalDialogs::getOpenFileName(widget, tr("Open File"), QString(), QString());
    if (path.isEmpty() || !lineEdit)
        return;
    lineEdit->setText(path);
    applyChanges();
}
