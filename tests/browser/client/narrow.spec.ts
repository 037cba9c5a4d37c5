import { expect, logIn, openDomains, row, test } from '../support/mock'
import { expectAccessible } from '../support/axe'

test.use({ viewport: { width: 390, height: 800 } })

test('on a narrow page the menu lies over the consoles and goes when one is chosen', async ({ page, address }) => {
  await logIn(page, address)
  const menu = page.getByRole('treegrid', { name: '菜单' })
  await openDomains(page)
  await expect(menu).toBeHidden()
  await page.getByRole('button', { name: '展开菜单' }).click()
  await expect(menu).toBeVisible()
  await expectAccessible(page)
  await menu.focus()
  await page.keyboard.press('Escape')
  await expect(menu).toBeHidden()
  await page.getByRole('button', { name: '展开菜单' }).click()
  await page.mouse.click(380, 400)
  await expect(menu).toBeHidden()
})

test('a narrow console stands one part above the other and needs no sideways scrolling', async ({ page, address }) => {
  await logIn(page, address)
  await openDomains(page)
  await row(page, '华东总部 (01)').click()
  const tree = await page.getByRole('treegrid', { name: '域' }).boundingBox()
  const list = await page.locator('.pages').getByRole('grid').boundingBox()
  expect((tree?.y ?? 0) + (tree?.height ?? 0)).toBeLessThan(list?.y ?? 0)
  expect(await page.evaluate(() => document.documentElement.scrollWidth)).toBe(390)
  await expect(page.getByRole('button', { name: '修改' })).toBeVisible()
  await expectAccessible(page)
})
