import { expect, logIn, openDomains, openKinds, row, test } from '../support/mock'
import { expectAccessible } from '../support/axe'

/** Presses Tab until the element has the focus, as often as a person may be willing to. */
async function tabTo(page: import('@playwright/test').Page, wanted: import('@playwright/test').Locator) {
  for (let pressed = 0; pressed < 40; pressed++) {
    if (await wanted.evaluate(element => element === document.activeElement)) return
    await page.keyboard.press('Tab')
  }
  await expect(wanted).toBeFocused()
}

async function openDialog(page: import('@playwright/test').Page) {
  await row(page, '华东总部 (01)').click()
  await page.keyboard.press('F2')
  await expect(page.getByLabel('名称')).toBeFocused()
}

test('a reload comes back to the same dialog with the typed text', async ({ page, address }) => {
  await logIn(page, address)
  await openDomains(page)
  await openDialog(page)
  await page.keyboard.type('新的名称')
  await page.waitForTimeout(150)
  await page.reload()
  await expect(page.getByLabel('名称')).toHaveValue('新的名称')
  await expect(page.getByLabel('名称')).toBeFocused()
})

test('a lost connection comes back by itself with what was typed meanwhile', async ({ page, address, request }) => {
  await logIn(page, address)
  await openDomains(page)
  await openDialog(page)
  await request.post(`${address}/mock/refuse?on=true`)
  await request.post(`${address}/mock/drop`)
  await expect(page.getByText('连接已断开')).toBeVisible()
  await page.keyboard.type('断线时输入')
  await request.post(`${address}/mock/refuse?on=false`)
  await expect(page.getByText('连接已断开')).toBeHidden({ timeout: 15_000 })
  await expect(page.getByLabel('名称')).toHaveValue('断线时输入')
  await expect(page.getByLabel('名称')).toBeFocused()
  await page.keyboard.press('Enter')
  await expect(row(page, '断线时输入 (01)')).toBeVisible()
})

test('a second tab takes over, and the first can take back', async ({ page, address, context }) => {
  await logIn(page, address)
  await openDomains(page)
  await openDialog(page)
  const second = await context.newPage()
  await second.goto(address)
  await expect(second.getByLabel('名称')).toHaveValue('华东总部')
  await expect(page.getByRole('heading', { name: '已在另一个页面中打开' })).toBeVisible()
  await expectAccessible(page)
  await page.getByRole('button', { name: '在此继续' }).click()
  await expect(page.getByLabel('名称')).toHaveValue('华东总部')
  await expect(second.getByRole('heading', { name: '已在另一个页面中打开' })).toBeVisible()
})

for (const [reason, heading] of [['crashed', '会话意外中断'], ['stuck', '会话没有响应'], ['idle', '会话已超时'], ['stopped', '服务器已停止']] as const)
  test(`a session that ended (${reason}) says so and leads to the login page`, async ({ page, address, request }) => {
    await logIn(page, address)
    await request.post(`${address}/mock/bye?reason=${reason}`)
    await expect(page.getByRole('heading', { name: heading })).toBeVisible()
    await page.getByRole('button', { name: '重新登录' }).click()
    await expect(page.getByLabel('密码', { exact: true })).toBeFocused()
  })

test('work that takes long is shown', async ({ page, address }) => {
  await logIn(page, address)
  await openKinds(page)
  await page.getByRole('button', { name: '慢操作' }).click()
  await expect(page.getByRole('progressbar', { name: '正在处理…' })).toBeVisible()
  await expect(page.getByRole('progressbar', { name: '正在处理…' })).toBeHidden()
})

for (const [language, working, button] of [['zh', '仍在处理，请稍候…', '取消'], ['en', 'Still working…', 'Cancel']] as const)
  test(`work that takes long can be cancelled by keyboard (${language})`, async ({ page, address, request }) => {
    await logIn(page, address)
    await openKinds(page)
    if (language === 'en') await page.getByRole('button', { name: 'English' }).click()
    await expect(page.locator('html')).toHaveAttribute('lang', language === 'en' ? 'en' : /^zh/)
    await request.post(`${address}/mock/delay?ms=60000`)
    await page.getByRole('row', { name: language === 'en' ? 'Domain management' : '域管理' }).click()
    const status = page.getByRole('status').filter({ hasText: working })
    await expect(status).toBeVisible()
    await expectAccessible(page)
    const cancel = status.getByRole('button', { name: button })
    await tabTo(page, cancel)
    await page.keyboard.press('Enter')
    await expect(status).toBeHidden()
    const events = await (await request.get(`${address}/mock/events`)).json() as { do: string }[]
    expect(events.filter(event => event.do === 'cancel')).toHaveLength(1)
    await expect(page.getByRole('progressbar')).toBeHidden()
  })

test('the language changes for client and session at once', async ({ page, address }) => {
  await logIn(page, address)
  await page.getByRole('button', { name: 'English' }).click()
  await expect(page.getByRole('row', { name: 'Domain management' })).toBeVisible()
  await expect(page.getByRole('button', { name: 'Log off' })).toBeVisible()
  await expectAccessible(page)
})

test('a file that was made is downloaded', async ({ page, address }) => {
  await logIn(page, address)
  await openKinds(page)
  const download = page.waitForEvent('download')
  await page.getByRole('button', { name: '导出' }).click()
  expect((await download).suggestedFilename()).toBe('users.xml')
})

test('a file is chosen and sent, which ends the dialog', async ({ page, address }) => {
  await logIn(page, address)
  await openKinds(page)
  await page.getByRole('button', { name: '导入' }).click()
  await expectAccessible(page)
  await page.getByLabel('选择文件').setInputFiles({ name: 'import.xml', mimeType: 'text/xml', buffer: Buffer.from('<users/>') })
  await expect(page.getByRole('dialog')).toBeHidden()
  await expect(page.getByText('查找：import.xml')).toBeVisible()
})

test('progress is drawn while an operation runs', async ({ page, address }) => {
  await logIn(page, address)
  await openKinds(page)
  await page.getByRole('button', { name: '进度' }).click()
  await expect(page.getByRole('dialog').getByRole('progressbar')).toBeVisible()
  await expect(page.getByRole('dialog')).toBeHidden()
})
