import { expect, logIn, test } from '../support/mock'
import { expectAccessible } from '../support/axe'

test('the login page greets in Chinese and in English', async ({ page, address }) => {
  await page.goto(address)
  await expect(page.getByRole('heading', { name: '组织权限管理' })).toBeVisible()
  await expect(page.getByLabel('用户名')).toBeFocused()
  await expectAccessible(page)
  await page.getByRole('button', { name: 'English' }).click()
  await expect(page.getByRole('button', { name: 'Log in' })).toBeVisible()
  await expect(page.locator('html')).toHaveAttribute('lang', 'en')
  await expectAccessible(page)
  await page.reload()
  await expect(page.getByRole('button', { name: 'Log in' })).toBeVisible()
})

test('a wrong password is refused, and too many tries are slowed down with a countdown', async ({ page, address }) => {
  await page.goto(address)
  await page.getByLabel('用户名').fill('admin')
  for (let attempt = 0; attempt < 3; attempt++) {
    await page.getByLabel('密码', { exact: true }).fill('wrong')
    await page.keyboard.press('Enter')
    await expect(page.getByRole('alert')).toContainText('用户名或密码不正确')
    await expect(page.getByLabel('密码', { exact: true })).toHaveValue('')
  }
  await page.getByLabel('密码', { exact: true }).fill('admin')
  await page.keyboard.press('Enter')
  await expect(page.getByRole('alert')).toContainText('请在 2 秒后重试')
  await expect(page.getByRole('button', { name: '登录' })).toBeDisabled()
  await expect(page.getByRole('button', { name: '登录' })).toBeEnabled()
  await page.getByLabel('密码', { exact: true }).fill('admin')
  await page.keyboard.press('Enter')
  await expect(page.getByRole('treegrid', { name: '菜单' })).toBeVisible()
})

test('a new password is asked for first when it is needed', async ({ page, address }) => {
  await page.goto(address)
  await page.getByLabel('用户名').fill('fresh')
  await page.getByLabel('密码', { exact: true }).fill('fresh')
  await page.keyboard.press('Enter')
  await expect(page.getByRole('heading', { name: '请设置新密码' })).toBeVisible()
  await expect(page.getByLabel('新密码', { exact: true })).toBeFocused()
  await expectAccessible(page)
  await page.keyboard.type('one')
  await page.getByLabel('再次输入新密码').fill('two')
  await page.keyboard.press('Enter')
  await expect(page.getByRole('alert')).toContainText('两次输入的新密码不一致')
  await page.getByLabel('再次输入新密码').fill('one')
  await page.keyboard.press('Enter')
  await expect(page.getByRole('treegrid', { name: '菜单' })).toBeVisible()
})

test('logging off comes back to the login page', async ({ page, address }) => {
  await logIn(page, address)
  await page.getByRole('button', { name: '退出登录' }).click()
  await expect(page.getByLabel('用户名')).toBeVisible()
  await page.reload()
  await expect(page.getByLabel('用户名')).toBeVisible()
})
