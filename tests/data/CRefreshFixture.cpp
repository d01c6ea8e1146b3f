#include "CRefreshFixture.h"

#include "CFilledStore.h"

CRefreshFixture::CRefreshFixture()
    : CStoreFixture([](SControlAnswers& answers) {
          Fill(answers);
          answers.strProject = "Opera";
      })
{ }

QStringList CRefreshFixture::Refresh()
{
    log.Take();
    ReadStore();
    return log.Take();
}

QStringList CRefreshFixture::RefreshAfter(const FnAnswers& fnChange)
{
    control.Set(fnChange);
    return Refresh();
}
