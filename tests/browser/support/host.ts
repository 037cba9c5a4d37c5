import { test as base, expect, type Page } from '@playwright/test'
import { execFileSync, spawn, type ChildProcess } from 'node:child_process'
import { mkdtempSync, readFileSync, rmSync } from 'node:fs'
import { createServer, type AddressInfo } from 'node:net'
import { tmpdir } from 'node:os'
import { join } from 'node:path'
import { fileURLToPath } from 'node:url'

const root = fileURLToPath(new URL('../../..', import.meta.url))
const program = process.env['ZANHOST'] ?? join(root, 'build/bin/zanhost')

export interface Host {
  address: string
  login: string
  password: string
  process: ChildProcess
}

/** A running server with a fresh sample company, for all tests of one file. */
export const test = base.extend<{ clean: void }, { host: Host }>({
  host: [async ({}, use) => {
    const folder = mkdtempSync(join(tmpdir(), 'zanrole-browser-'))
    const data = `sqlite:${folder}`
    execFileSync(program, ['sample', '--data', data, '--people', '60', '--quiet'], { stdio: 'inherit' })
    const port = await freePort()
    const host: Host = { address: `http://127.0.0.1:${port}`, ...firstLogin(folder), process: serve(data, port) }
    await isUp(host)
    await use(host)
    host.process.kill('SIGTERM')
    await new Promise(resolve => { if (host.process.exitCode !== null) resolve(0); else host.process.once('exit', resolve) })
    rmSync(folder, { recursive: true, force: true })
  }, { scope: 'worker', timeout: 60_000 }],

  /** The browser refused or threw nothing while the test ran. */
  clean: [async ({ page }, use) => {
    const faults: string[] = []
    page.on('pageerror', error => faults.push(String(error)))
    page.on('console', message => { if (/Content Security Policy/.test(message.text())) faults.push(message.text()) })
    await use()
    expect(faults).toEqual([])
  }, { auto: true }],
})

export { expect }

function serve(data: string, port: number): ChildProcess {
  const options = ['serve', '--data', data, '--listen', `127.0.0.1:${port}`, '--web', join(root, 'web/dist')]
  return spawn(program, options, { stdio: ['ignore', 'inherit', 'inherit'] })
}

async function freePort(): Promise<number> {
  return new Promise(resolve => {
    const probe = createServer()
    probe.listen(0, '127.0.0.1', () => {
      const { port } = probe.address() as AddressInfo
      probe.close(() => resolve(port))
    })
  })
}

/** What a new installation leaves for its administrator. */
function firstLogin(folder: string): { login: string; password: string } {
  return JSON.parse(readFileSync(join(folder, 'first-login.txt'), 'utf8')) as { login: string; password: string }
}

async function isUp(host: Host): Promise<void> {
  for (let attempt = 0; attempt < 100; attempt++) {
    const reply = await fetch(`${host.address}/healthz`).catch(() => undefined)
    if (reply?.ok) return
    if (host.process.exitCode !== null) throw new Error('The server ended before it listened.')
    await new Promise(resolve => setTimeout(resolve, 100))
  }
  throw new Error('The server does not answer.')
}

export async function logIn(page: Page, host: Host): Promise<void> {
  await page.goto(host.address)
  await page.getByLabel('用户名').fill(host.login)
  await page.getByLabel('密码', { exact: true }).fill(host.password)
  await page.keyboard.press('Enter')
  await expect(page.getByRole('treegrid', { name: '主菜单' })).toBeVisible()
}

export async function logOff(page: Page): Promise<void> {
  await page.getByRole('button', { name: '退出登录' }).click()
  await expect(page.getByLabel('用户名')).toBeVisible()
}

/** Opens the console of the domain tree by its menu entry. */
export async function openDomains(page: Page): Promise<void> {
  await page.getByRole('navigation').getByRole('row', { name: '域管理' }).click()
  await expect(domainTree(page)).toBeFocused()
}

export function domainTree(page: Page) {
  return page.getByRole('tabpanel', { name: '域管理' }).getByRole('treegrid')
}
