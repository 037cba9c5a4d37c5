import { test as base, expect, type Page } from '@playwright/test'
import { fileURLToPath } from 'node:url'
import { startMock } from '../../../web/dev/mock.mjs'

const folder = fileURLToPath(new URL('../../../web/dist', import.meta.url)).replace(/\/$/, '')

interface Fixtures {
  address: string
  /** The browser refused or threw nothing while the test ran. */
  clean: void
}

/** Each test has a mock server of its own. */
export const test = base.extend<Fixtures>({
  address: async ({}, use) => {
    const { server, port } = await startMock(0, folder)
    await use(`http://127.0.0.1:${port}`)
    server.closeAllConnections()
    server.close()
  },
  clean: [async ({ page }, use) => {
    const faults: string[] = []
    page.on('pageerror', error => faults.push(String(error)))
    page.on('console', message => { if (/Content Security Policy|\[Vue warn\]/.test(message.text())) faults.push(message.text()) })
    await use()
    expect(faults).toEqual([])
  }, { auto: true }],
})

export { expect }

export async function logIn(page: Page, address: string): Promise<void> {
  await page.goto(address)
  await page.getByLabel('用户名').fill('admin')
  await page.getByLabel('密码', { exact: true }).fill('admin')
  await page.keyboard.press('Enter')
  await expect(page.getByRole('treegrid', { name: '菜单' })).toBeVisible()
}

export async function openDomains(page: Page): Promise<void> {
  await page.getByRole('row', { name: '域管理' }).click()
  await expect(page.getByRole('treegrid', { name: '域' })).toBeVisible()
}

export async function openKinds(page: Page): Promise<void> {
  await page.getByRole('row', { name: '组件示例' }).click()
  await expect(page.getByRole('grid', { name: '大列表' })).toBeVisible()
}

export function row(page: Page, name: string | RegExp) {
  return page.locator('.console, .dialog').getByRole('row', { name })
}

export async function focusedId(page: Page): Promise<string> {
  return page.evaluate(() => document.activeElement?.id ?? '')
}
