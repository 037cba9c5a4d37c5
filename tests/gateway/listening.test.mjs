import assert from 'node:assert/strict'
import { execFileSync } from 'node:child_process'
import { rmSync } from 'node:fs'
import net from 'node:net'
import { networkInterfaces } from 'node:os'
import { join } from 'node:path'
import { after, before, describe, it } from 'node:test'
import { Page } from './support/page.mjs'
import { Data, Server, right, serveToEnd, temporaryFolder } from './support/server.mjs'

describe('listening', () => {
  let data
  before(() => { data = new Data() })
  after(() => data.remove())

  it('on a port in use ends with a sentence and status 1', async () => {
    const taken = net.createServer()
    await new Promise((listening) => taken.listen(0, '127.0.0.1', listening))
    const address = `127.0.0.1:${taken.address().port}`
    const { code, output } = await serveToEnd(['--data', data.url, '--listen', address])
    taken.close()
    assert.equal(code, 1)
    assert.match(output, new RegExp(`Cannot listen on ${address}: another program uses this port.*--listen`))
  })

  it('off loopback without TLS or a proxy is refused', async () => {
    for (const address of ['0.0.0.0:0', '[::]:0', '192.0.2.1:8700']) {
      const { code, output } = await serveToEnd(['--data', data.url, '--listen', address])
      assert.equal(code, 1, address)
      assert.match(output, /--tls-cert.*--behind-proxy/)
    }
  })

  it('on what is no address, or with data that is not there, ends with a sentence', async () => {
    for (const address of ['here', '127.0.0.1', '127.0.0.1:x', '127.0.0.1:70000', '::1:8700', ':8700']) {
      const { code, output } = await serveToEnd(['--data', data.url, '--listen', address])
      assert.equal(code, 1, address)
      assert.match(output, /is no address to listen on/)
    }
    for (const url of ['sqlite:/does/not/exist', 'nonsense']) {
      const { code, output } = await serveToEnd(['--data', url, '--listen', '127.0.0.1:0'])
      assert.notEqual(code, 0)
      assert.match(output, /^zanhost.*: \S/)
    }
  })
})

describe('TLS', () => {
  let data
  let folder
  before(() => {
    data = new Data()
    folder = temporaryFolder()
    execFileSync('openssl', ['req', '-x509', '-newkey', 'ec', '-pkeyopt', 'ec_paramgen_curve:prime256v1', '-nodes', '-days', '2',
      '-subj', '/CN=127.0.0.1', '-keyout', join(folder, 'key.pem'), '-out', join(folder, 'cert.pem')], { stdio: 'ignore' })
  })
  after(() => {
    data.remove()
    rmSync(folder, { recursive: true })
  })

  const files = () => ['--tls-cert', join(folder, 'cert.pem'), '--tls-key', join(folder, 'key.pem')]

  it('carries login, cookie and page', async () => {
    const server = await Server.start(data, { args: files(), scheme: 'https' })
    const reply = await server.logIn('admin', right)
    assert.equal(reply.status, 200)
    const cookie = reply.headers['set-cookie'][0]
    assert.match(cookie, /^__Host-zanrole=[0-9a-f]{64}; .*Secure/)
    const page = await Page.open(server, cookie.split(';')[0])
    await page.snapshot()
    await page.event({ do: 'set', value: 'x'.repeat(100000) })
    await server.stop()
    assert.deepEqual(await page.bye(), { bye: 'stopped' })
    assert.equal(await page.closed, 1000)
  })

  it('lets the server listen on every address', async () => {
    const server = await Server.start(data, { args: [...files(), '--listen', '0.0.0.0:0'], scheme: 'https' })
    assert.equal((await server.get('/healthz')).status, 200)
    await server.stop()
  })

  it('reads a renewed certificate at SIGHUP without losing a session', async () => {
    const server = await Server.start(data, { args: files(), scheme: 'https' })
    const reply = await server.logIn('admin', right)
    const page = await Page.open(server, reply.headers['set-cookie'][0].split(';')[0])
    server.child.kill('SIGHUP')
    await page.event({ do: 'set', value: 'still here' })
    assert.equal((await server.get('/healthz')).status, 200)
    assert.match(data.log(), /certificate read again/)
    await server.stop()
  })

  it('is refused with one file of the two, or with files that are none', async () => {
    const wrong = [['--tls-cert', join(folder, 'none.pem'), '--tls-key', join(folder, 'key.pem')],
      ['--tls-cert', join(folder, 'cert.pem'), '--tls-key', join(folder, 'cert.pem')], ['--tls-cert', join(folder, 'cert.pem')]]
    for (const args of wrong) {
      const { code, output } = await serveToEnd(['--data', data.url, '--listen', '127.0.0.1:0', ...args])
      assert.notEqual(code, 0)
      assert.match(output, /zanhost.*: \S/)
    }
  })
})

describe('a proxy that is named', () => {
  let data
  before(() => { data = new Data() })
  after(() => data.remove())

  it('is believed who asks, and over what', async () => {
    const server = await Server.start(data, { args: ['--behind-proxy', '127.0.0.1'] })
    const headers = { host: 'roles.example', origin: 'https://roles.example', 'x-forwarded-proto': 'https',
      'x-forwarded-for': '203.0.113.9, 198.51.100.7' }
    const reply = await server.logIn('admin', right, {}, headers)
    assert.equal(reply.status, 200)
    assert.match(reply.headers['set-cookie'][0], /^__Host-zanrole=.*Secure/)
    assert.match(data.log(), /operation="login" outcome="ok \(198\.51\.100\.7\)"/)
    const plain = { ...headers, origin: 'http://roles.example' }
    assert.equal((await server.logIn('admin', right, {}, plain)).status, 403)
    await server.stop()
  })

  it('is not believed when it is not named', async () => {
    const server = await Server.start(data)
    const reply = await server.logIn('admin', right, {}, { 'x-forwarded-for': '203.0.113.9', 'x-forwarded-proto': 'https' })
    assert.equal(reply.status, 200)
    assert.match(reply.headers['set-cookie'][0], /^zanrole=/)
    assert.ok(!data.log().includes('203.0.113.9'))
    await server.stop()
  })

  it('keeps plain connections of others out', async (context) => {
    const own = Object.values(networkInterfaces()).flat().find((entry) => !entry.internal && entry.family === 'IPv4')
    if (!own) return context.skip('this machine has no address off loopback')
    const server = await Server.start(data, { args: ['--listen', '0.0.0.0:0', '--behind-proxy', '203.0.113.1'] })
    const answer = await new Promise((done, failed) => {
      const socket = net.connect({ host: own.address, port: server.port }, () =>
        socket.write(`GET /healthz HTTP/1.1\r\nhost: a\r\nconnection: close\r\n\r\n`))
      let text = ''
      socket.on('data', (part) => { text += part })
      socket.on('close', () => done(text))
      socket.on('error', failed)
    })
    assert.match(answer, /^HTTP\/1\.1 403 /)
    assert.equal((await server.get('/healthz')).status, 200)
    await server.stop()
  })
})
